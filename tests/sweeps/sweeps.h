#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "mocks/mock.h"
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

/// Every reference argument and every element of an array is null, alone and all at once: an exception that
/// says so and no call of the platform, or the answer that the contract gives.
Findings sweepNullArguments(const std::vector<NativeMethod>& natives);

/// Every single JNI call fails, in calls that succeed otherwise and in those in which the platform throws:
/// that error arrives in Java, and after a failed lookup the failure value.
Findings sweepFailingCalls(const std::vector<NativeMethod>& natives);

/// Every single allocation of native memory fails: a Java exception that says so.
Findings sweepFailingMemory(const std::vector<NativeMethod>& natives);

/// The trace log throws while a native exception is translated: Java still gets an exception.
Findings sweepFailingTrace(const std::vector<NativeMethod>& natives);

/// The platform gives hostile answers: empty, huge, extreme, null. Whatever comes of it, the buffers are
/// given back and no more than one Java exception arrives.
Findings sweepHostileAnswers(const std::vector<NativeMethod>& natives,
                             const std::vector<platform::Hostility>& hostilities);
