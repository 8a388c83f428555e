#include "platform/processManagerUtils.h"

#include "memory.h"

namespace talvern::processManagerUtils {

namespace {

constexpr int refused = 1;

struct State {
    std::uint32_t traceMask = 0;
    PlatformLogLevel level = PlatformLogLevel::info;
};
Memory<State> memory;

bool isLevel(PlatformLogLevel level) {
    return level >= PlatformLogLevel::emergency && level <= PlatformLogLevel::debug;
}

std::int32_t noteSignal(const std::string& process) { return process.empty() ? refused : 0; }

}  // namespace

std::uint32_t getPlatformTraceMask() {
    return memory.use([](State& state) { return state.traceMask; });
}

std::int32_t getPlatformLogLevel(PlatformLogLevel& level) {
    level = memory.use([](State& state) { return state.level; });
    return 0;
}

std::int32_t setPlatformLogLevel(PlatformLogLevel level) {
    if (!isLevel(level)) return refused;
    memory.use([&](State& state) { state.level = level; });
    return 0;
}

std::int32_t distributeLogging(unsigned int traceMask, int level) {
    if (!isLevel(PlatformLogLevel{level})) return refused;
    memory.use([&](State& state) { state = State{traceMask, PlatformLogLevel{level}}; });
    return 0;
}

std::int32_t requestReboot() { return 0; }

std::int32_t requestShutdown() { return 0; }

std::int32_t signalApplicationIsUnhealthy(const std::string& process) { return noteSignal(process); }

std::int32_t signalIAmReady(const std::string& process, bool) { return noteSignal(process); }

}  // namespace talvern::processManagerUtils
