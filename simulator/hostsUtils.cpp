#include "platform/hostsUtils.h"

#include <algorithm>
#include <map>

#include "addresses.h"
#include "memory.h"

namespace {

struct State {
    std::map<std::string, std::vector<std::string>> table{{"127.0.0.1", {"localhost"}},
                                                          {"10.0.0.20", {"db.example.com", "db"}}};
};
Memory<State> memory;

}  // namespace

namespace talvern::hostsUtils {

std::vector<std::string> getAddresses() {
    return memory.use([](const State& state) {
        std::vector<std::string> addresses;
        for (const auto& [address, hostnames] : state.table) addresses.push_back(address);
        return addresses;
    });
}

std::vector<std::string> getHostnames(const std::string& address) {
    return memory.use([&](const State& state) {
        const auto entry = state.table.find(address);
        return entry == state.table.end() ? std::vector<std::string>{} : entry->second;
    });
}

bool setHostnames(const std::string& address, const std::vector<std::string>& hostnames) {
    if (!isIpAddress(address) || !std::all_of(hostnames.begin(), hostnames.end(), isHostName)) return false;
    memory.use([&](State& state) {
        if (hostnames.empty()) {
            state.table.erase(address);
        } else {
            state.table[address] = hostnames;
        }
    });
    return true;
}

bool deleteHostnames(const std::string& address) {
    return memory.use([&](State& state) { return state.table.erase(address) > 0; });
}

}  // namespace talvern::hostsUtils
