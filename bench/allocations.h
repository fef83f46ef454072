// Every allocation of the program, counted: linking this replaces the global operator new.
#pragma once

#include <cstddef>

namespace korvane {

// How many allocations there were since the program's start.
std::size_t AllocationCount();

}  // namespace korvane
