#include "support/allocation.h"

#include <cstdlib>
#include <new>

namespace {

constexpr auto never = static_cast<std::size_t>(-1);

thread_local std::size_t allocationsToFailure = never;
thread_local bool hasFailed = false;
thread_local int uncountedDepth = 1;
thread_local std::ptrdiff_t alive = 0;

/// Stands in front of each allocation.
struct alignas(std::max_align_t) Header {
    std::ptrdiff_t* countedIn;
};

}  // namespace

void failAllocation(std::size_t index) {
    allocationsToFailure = index;
    hasFailed = false;
}

bool allocationHasFailed() {
    allocationsToFailure = never;
    return hasFailed;
}

std::ptrdiff_t aliveAllocations() { return alive; }

CountedAllocations::CountedAllocations() { --uncountedDepth; }
CountedAllocations::~CountedAllocations() { ++uncountedDepth; }

UncountedAllocations::UncountedAllocations() { ++uncountedDepth; }
UncountedAllocations::~UncountedAllocations() { --uncountedDepth; }

// The program's operators replace those of the C++ runtime in the bridge as well.
void* operator new(std::size_t size) {
    if (uncountedDepth == 0 && allocationsToFailure != never && allocationsToFailure-- == 0) {
        allocationsToFailure = never;
        hasFailed = true;
        throw std::bad_alloc{};
    }
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (header == nullptr) throw std::bad_alloc{};
    header->countedIn = uncountedDepth == 0 ? &alive : nullptr;
    if (uncountedDepth == 0) ++alive;
    return header + 1;
}

// The sanitizer's own would not go with the operator below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    Header* header = static_cast<Header*>(memory) - 1;
    if (header->countedIn == &alive) --alive;
    std::free(header);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
