#include <algorithm>

#include "addresses.h"
#include "memory.h"
#include "simulated.h"

namespace talvern::nameServers::simulated {

namespace {

constexpr std::int32_t refused = 6;

struct State {
    std::vector<std::string> servers{"10.0.0.53", "10.0.1.53"};
    std::vector<std::string> options{"timeout:2", "attempts:3"};  // the companion list
    std::vector<std::string> domains{"example.com"};
};

template <typename Members>
void describe(Members& members, State& state) {
    members("servers", state.servers);
    members("options", state.options);
    members("searchDomains", state.domains);
}

auto& memory = Memory<State>::make("nameServers");

}  // namespace

std::vector<std::string> getNameServers(std::vector<std::string>* companions) {
    return memory.read([&](const State& state) {
        if (companions != nullptr) *companions = state.options;
        return state.servers;
    });
}

std::int32_t setNameServers(const std::vector<std::string>& servers, const std::vector<std::string>* companions) {
    if (!std::all_of(servers.begin(), servers.end(), isIpAddress)) return refused;
    memory.change([&](State& state) {
        state.servers = servers;
        state.options = companions == nullptr ? std::vector<std::string>{} : *companions;
    });
    return 0;
}

std::vector<std::string> getSearchDomains() {
    return memory.read([](const State& state) { return state.domains; });
}

std::int32_t setSearchDomains(const std::vector<std::string>& domains) {
    if (!std::all_of(domains.begin(), domains.end(), isHostName)) return refused;
    memory.change([&](State& state) { state.domains = domains; });
    return 0;
}

}  // namespace talvern::nameServers::simulated
