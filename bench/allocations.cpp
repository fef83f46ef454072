#include "allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;  // the benchmarks have one thread

}  // namespace

namespace korvane {

std::size_t AllocationCount() {
    return count;
}

}  // namespace korvane

void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
