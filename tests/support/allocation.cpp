#include "support/allocation.h"

#include <cstdlib>
#include <new>

namespace {

constexpr auto never = static_cast<std::size_t>(-1);

thread_local std::size_t allocationsToFailure = never;
thread_local bool hasFailed = false;
thread_local int uncounted = 1;

}  // namespace

void failAllocation(std::size_t index) {
    allocationsToFailure = index;
    hasFailed = false;
}

bool allocationHasFailed() {
    allocationsToFailure = never;
    return hasFailed;
}

CountedAllocations::CountedAllocations() { --uncounted; }
CountedAllocations::~CountedAllocations() { ++uncounted; }

UncountedAllocations::UncountedAllocations() { ++uncounted; }
UncountedAllocations::~UncountedAllocations() { --uncounted; }

// The program's operators replace those of the C++ runtime in the bridge as well.
void* operator new(std::size_t size) {
    if (uncounted == 0 && allocationsToFailure != never && allocationsToFailure-- == 0) {
        allocationsToFailure = never;
        hasFailed = true;
        throw std::bad_alloc{};
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc{};
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
