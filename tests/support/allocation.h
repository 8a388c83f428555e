#pragma once

#include <cstddef>

// Native memory that runs out, or is not given back. Counted are the allocations by `operator new` of a
// native method that the current thread calls, but for those of the tests' own code below it.

/// From now on the allocation with this index fails, once.
void failAllocation(std::size_t index);

/// Whether the planned failure has happened; no failure is planned any more.
bool allocationHasFailed();

/// How many counted allocations of the current thread have not been freed.
std::ptrdiff_t aliveAllocations();

/// While one exists, a native method is at work.
class CountedAllocations {
  public:
    CountedAllocations();
    ~CountedAllocations();
    CountedAllocations(const CountedAllocations&) = delete;
    CountedAllocations& operator=(const CountedAllocations&) = delete;
};

/// While one exists, allocations are neither counted nor failed: the tests' own code is at work.
class UncountedAllocations {
  public:
    UncountedAllocations();
    ~UncountedAllocations();
    UncountedAllocations(const UncountedAllocations&) = delete;
    UncountedAllocations& operator=(const UncountedAllocations&) = delete;
};
