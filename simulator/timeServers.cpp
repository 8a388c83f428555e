#include "addresses.h"
#include "memory.h"
#include "simulated.h"

namespace talvern::timeServers::simulated {

namespace {

constexpr std::int32_t refused = 6;

struct State {
    std::vector<std::string> servers{"ntp1.example.com", "ntp2.example.com"};
};

void fromJson(const json::Node& node, State& state) { Reader::read(node, state.servers); }
void toJson(json::Text& out, State& state) { Writer::write(out, state.servers); }

auto& memory = Memory<State>::make("timeServers");

}  // namespace

std::vector<std::string> getTimeServers(std::vector<std::string>* companions) {
    if (companions != nullptr) companions->clear();  // this appliance keeps nothing beside the servers
    return memory.read([](const State& state) { return state.servers; });
}

std::int32_t setTimeServers(const std::vector<std::string>& servers, std::vector<std::string>* companions) {
    std::vector<std::string> malformed;
    for (const std::string& server : servers) {
        if (!isHostName(server) && !isIpAddress(server)) malformed.push_back(server);
    }
    if (companions != nullptr) *companions = malformed;
    if (!malformed.empty()) return refused;
    memory.change([&](State& state) { state.servers = servers; });
    return 0;
}

}  // namespace talvern::timeServers::simulated
