#include "platform/timeServers.h"

#include "addresses.h"
#include "memory.h"

namespace {

constexpr std::int32_t refused = 6;

struct State {
    std::vector<std::string> servers{"ntp1.example.com", "ntp2.example.com"};
};
Memory<State> memory;

}  // namespace

namespace talvern::timeServers {

std::vector<std::string> getTimeServers(std::vector<std::string>* companions) {
    if (companions != nullptr) companions->clear();  // this appliance keeps nothing beside the servers
    return memory.use([](const State& state) { return state.servers; });
}

std::int32_t setTimeServers(const std::vector<std::string>& servers, std::vector<std::string>* companions) {
    std::vector<std::string> malformed;
    for (const std::string& server : servers) {
        if (!isHostName(server) && !isIpAddress(server)) malformed.push_back(server);
    }
    if (companions != nullptr) *companions = malformed;
    if (!malformed.empty()) return refused;
    memory.use([&](State& state) { state.servers = servers; });
    return 0;
}

}  // namespace talvern::timeServers
