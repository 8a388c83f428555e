#pragma once

#include <cstddef>

/// What the current thread has allocated with `operator new` since it started. The JVM's own allocations are
/// not among them.
struct Allocated {
    std::size_t blocks;
    std::size_t bytes;
};
Allocated allocated();
