#include "platform/log.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "memory.h"

namespace {

struct State {
    std::string name;
};
Memory<State> memory;

}  // namespace

namespace talvern::log {

void init(const char* name) {
    memory.use([&](State& state) { state.name = name; });
}

void trace(unsigned level, const char* format, ...) {
    const std::string name = memory.use([](State& state) { return state.name; });
    if (name.empty()) return;
    std::va_list arguments;
    va_start(arguments, format);
    char line[1024];
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    std::fprintf(stderr, "%s[%u]: %s\n", name.c_str(), level, line);
}

}  // namespace talvern::log
