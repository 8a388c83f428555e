#include "memory.h"
#include "simulated.h"

namespace talvern::snmpUtils::simulated {

namespace {

struct State {
    bool isRunning = false;
};

template <typename Members>
void describe(Members& members, State& state) {
    members("isRunning", state.isRunning);
}

auto& memory = Memory<State>::make("snmp");

}  // namespace

bool startSNMP() {
    return memory.change([](State& state) { return !std::exchange(state.isRunning, true); });
}

bool stopSNMP() {
    return memory.change([](State& state) { return std::exchange(state.isRunning, false); });
}

bool restartSNMP() {
    return memory.change([](State& state) { return state.isRunning = true; });
}

}  // namespace talvern::snmpUtils::simulated
