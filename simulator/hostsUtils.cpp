#include <algorithm>
#include <map>

#include "addresses.h"
#include "memory.h"
#include "simulated.h"

namespace talvern::hostsUtils::simulated {

namespace {

struct State {
    std::map<std::string, std::vector<std::string>> table{
        {"127.0.0.1", {"localhost"}}, {"10.0.0.20", {"db.example.com", "db"}}};
};

void fromJson(const json::Node& node, State& state) {
    Reader::read(node, state.table);
    Reader::forEachChild(node, [](const json::Node& entry) {
        if (!isIpAddress(std::string{entry.key})) throw json::Problem{entry.position, "is no address"};
    });
}
void toJson(json::Text& out, State& state) { Writer::write(out, state.table); }

auto& memory = Memory<State>::make("hosts");

}  // namespace

std::vector<std::string> getAddresses() {
    return memory.read([](const State& state) {
        std::vector<std::string> addresses;
        for (const auto& [address, hostnames] : state.table) addresses.push_back(address);
        return addresses;
    });
}

std::vector<std::string> getHostnames(const std::string& address) {
    return memory.read([&](const State& state) {
        const auto entry = state.table.find(address);
        return entry == state.table.end() ? std::vector<std::string>{} : entry->second;
    });
}

bool setHostnames(const std::string& address, const std::vector<std::string>& hostnames) {
    if (!isIpAddress(address) || !std::all_of(hostnames.begin(), hostnames.end(), isHostName)) return false;
    memory.change([&](State& state) {
        if (hostnames.empty()) {
            state.table.erase(address);
        } else {
            state.table[address] = hostnames;
        }
    });
    return true;
}

bool deleteHostnames(const std::string& address) {
    return memory.change([&](State& state) { return state.table.erase(address) > 0; });
}

}  // namespace talvern::hostsUtils::simulated
