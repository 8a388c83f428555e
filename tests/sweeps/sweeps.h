#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/natives.h"

// Checks that hold for every native method, made from what reflection tells about it.

/// What a sweep has seen.
struct Findings {
    std::size_t cases = 0;
    std::vector<std::string> faults;  ///< one line each: which native method, under what, did what
};

/// The JVM binds every native method by its name, and a plausible call ends without an exception.
Findings sweepBindings(const std::vector<NativeMethod>& natives);

/// Every platform operation throws: one Java exception of the right kind, and the failure value.
Findings sweepPlatformExceptions(const std::vector<NativeMethod>& natives);

/// Every reference argument is null: an exception that says so and no call of the platform, or the answer
/// that the contract gives.
Findings sweepNullArguments(const std::vector<NativeMethod>& natives);

/// Every Java class that the native methods look up is missing: the JVM's error and the failure value.
Findings sweepMissingClasses(const std::vector<NativeMethod>& natives);

/// What the native method returns after a failure, as text.
std::string failureValue(const NativeMethod& native);
