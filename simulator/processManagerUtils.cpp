#include <array>

#include "memory.h"
#include "simulated.h"

namespace talvern::processManagerUtils {

static const auto& namesOf(PlatformLogLevel) {
    static constexpr std::array names{"emergency", "alert", "critical", "error", "warning", "notice", "info", "debug"};
    return names;
}

namespace simulated {

namespace {

constexpr int refused = 1;

struct State {
    std::uint32_t traceMask = 0;
    PlatformLogLevel level = PlatformLogLevel::info;
};

template <typename Members>
void describe(Members& members, State& state) {
    members("traceMask", state.traceMask);
    members("level", state.level);
}

auto& memory = Memory<State>::make("logging");

bool isLevel(PlatformLogLevel level) {
    return level >= PlatformLogLevel::emergency && level <= PlatformLogLevel::debug;
}

std::int32_t noteSignal(const std::string& process) { return process.empty() ? refused : 0; }

}  // namespace

std::uint32_t getPlatformTraceMask() {
    return memory.read([](const State& state) { return state.traceMask; });
}

std::int32_t getPlatformLogLevel(PlatformLogLevel& level) {
    level = memory.read([](const State& state) { return state.level; });
    return 0;
}

std::int32_t setPlatformLogLevel(PlatformLogLevel level) {
    if (!isLevel(level)) return refused;
    memory.change([&](State& state) { state.level = level; });
    return 0;
}

std::int32_t distributeLogging(unsigned int traceMask, int level) {
    if (!isLevel(PlatformLogLevel{level})) return refused;
    memory.change([&](State& state) { state = State{traceMask, PlatformLogLevel{level}}; });
    return 0;
}

std::int32_t requestReboot() { return 0; }

std::int32_t requestShutdown() { return 0; }

std::int32_t signalApplicationIsUnhealthy(const std::string& process) { return noteSignal(process); }

std::int32_t signalIAmReady(const std::string& process, bool) { return noteSignal(process); }

}  // namespace simulated

}  // namespace talvern::processManagerUtils
