// Where the rules are that come with the program.
#pragma once

#include <filesystem>

namespace korvane {

// The folder beside an installed program, else the one that the program was built with.
std::filesystem::path ShippedRules();

}  // namespace korvane
