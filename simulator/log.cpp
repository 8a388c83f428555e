#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

#include "simulated.h"

namespace {

// Logging belongs to this process, not to the appliance: a device reset leaves it as it is.
std::mutex mutex;
std::string processName;  // guarded by mutex; empty until logging is initialised

}  // namespace

namespace talvern::log::simulated {

void init(const char* name) {
    const std::lock_guard lock{mutex};
    processName = name;
}

}  // namespace talvern::log::simulated

namespace talvern::log {

void trace(unsigned level, const char* format, ...) {
    const std::string name = [] {
        const std::lock_guard lock{mutex};
        return processName;
    }();
    if (name.empty()) return;
    std::va_list arguments;
    va_start(arguments, format);
    char line[1024];
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    std::fprintf(stderr, "%s[%u]: %s\n", name.c_str(), level, line);
}

}  // namespace talvern::log
