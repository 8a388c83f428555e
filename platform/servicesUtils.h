#pragma once

#include <cstdint>

/// Tests of the appliance's services, each known by a name.
/// Names are modified UTF-8 and belong to the caller: they are valid only during the call. Every operation
/// may be called from any thread, and may throw.
namespace talvern::servicesUtils {

/// Starts to run the test again and again, every `interval` seconds. Returns a status, 0 for success; Java
/// receives it as it is.
std::int32_t startTest(const char* name, std::int32_t interval);

/// Ends what `startTest` started. Returns a status, as above.
std::int32_t stopTest(const char* name);

/// Runs the test `count` times and returns when all are done. Java does not learn the status.
std::int32_t performTest(const char* name, std::int32_t count);

}  // namespace talvern::servicesUtils
