#include "platform/snmpUtils.h"

#include "memory.h"

namespace {

struct State {
    bool isRunning = false;
};
Memory<State> memory;

}  // namespace

namespace talvern::snmpUtils {

bool startSNMP() {
    return memory.use([](State& state) { return !std::exchange(state.isRunning, true); });
}

bool stopSNMP() {
    return memory.use([](State& state) { return std::exchange(state.isRunning, false); });
}

bool restartSNMP() {
    return memory.use([](State& state) { return state.isRunning = true; });
}

}  // namespace talvern::snmpUtils
