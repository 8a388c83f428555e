#include "platform/log.h"

#include <algorithm>
#include <cstdarg>
#include <syslog.h>

namespace talvern::log {

// The bridge's levels mean what the system's log means by them.
void trace(unsigned level, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    vsyslog(std::min(static_cast<int>(level), LOG_DEBUG), format, arguments);
    va_end(arguments);
}

}  // namespace talvern::log
