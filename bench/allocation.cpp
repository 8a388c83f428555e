#include "allocation.h"

#include <cstdlib>
#include <new>

namespace {

thread_local Allocated total;

}  // namespace

Allocated allocated() { return total; }

// The program's own operators stand before those of the C++ library, also for the bridge and the floor.

void* operator new(std::size_t size) {
    ++total.blocks;
    total.bytes += size;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc{};
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }
