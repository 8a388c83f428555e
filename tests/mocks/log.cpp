#include "mocks/log.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "platform/log.h"

namespace talvern::log {

void init(const char* name) { operation(&LogMock::init, name); }

void trace(unsigned level, const char* format, ...) {
    const UncountedAllocations uncounted;
    std::va_list arguments;
    va_start(arguments, format);
    char* line = nullptr;
    const int length = vasprintf(&line, format, arguments);
    va_end(arguments);
    const std::unique_ptr<char, decltype(&std::free)> owner{line, &std::free};
    mock<LogMock>().line(level, length < 0 ? std::string{} : std::string{line});
}

}  // namespace talvern::log
