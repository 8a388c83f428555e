#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <memory>

#include "addresses.h"
#include "memory.h"
#include "simulated.h"

using talvern::types::InterfaceStatus;
using talvern::types::KeyValPair;

namespace talvern::ethernetInterfaces::simulated {

namespace {

// The statuses of this appliance; 0 is success.
constexpr std::int32_t notFound = 2;
constexpr std::int32_t alreadyExists = 3;
constexpr std::int32_t malformed = 6;
constexpr std::int32_t readOnly = 7;

using Attributes = std::map<std::string, std::string>;

struct Interface {
    std::string type = "ethernet";
    std::string builtInHardwareAddress = {};  // empty: has none of its own
    bool hasLink = false;
    Attributes configuration = {};
    std::string hardwareAddress = builtInHardwareAddress;
    std::vector<std::string> virtualAddresses = {};
};

struct State {
    std::map<std::string, Interface> interfaces{
        {"eth0",
         {"ethernet",
          "02:4b:56:00:00:10",
          true,
          {{"enabled", "true"},
           {"mode", "static"},
           {"ipAddress", "10.0.0.10"},
           {"netmask", "255.255.255.0"},
           {"gateway", "10.0.0.1"},
           {"mtu", "1500"}}}},
        {"eth1", {"ethernet", "02:4b:56:00:00:11", true, {{"enabled", "true"}, {"mtu", "9000"}}}},
        {"eth2", {"ethernet", "02:4b:56:00:00:12", false, {{"enabled", "true"}, {"mtu", "9000"}}}},
        {"agg0",
         {"aggregate",
          "",
          false,
          {{"enabled", "true"},
           {"mode", "static"},
           {"ipAddress", "10.0.1.10"},
           {"netmask", "255.255.255.0"},
           {"members", "eth1,eth2"}}}},
        {"vlan100",
         {"vlan", "", false, {{"enabled", "true"}, {"mode", "dhcp"}, {"parent", "agg0"}, {"vlanId", "100"}}}},
        {"lo", {"loopback", "", true, {{"enabled", "true"}, {"ipAddress", "127.0.0.1"}, {"netmask", "255.0.0.0"}}}},
    };
};
std::string valueOf(const Attributes& attributes, const std::string& key) {
    const auto entry = attributes.find(key);
    return entry == attributes.end() ? "" : entry->second;
}

std::vector<std::string> split(const std::string& list) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        parts.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

std::string join(const std::vector<std::string>& parts) {
    std::string list;
    for (const std::string& part : parts) list += (list.empty() ? "" : ",") + part;
    return list;
}

/// What follows from the interface itself: shown beside its configuration, and not changed with it.
Attributes fixedAttributes(const std::string& name, const Interface& interface) {
    Attributes attributes{{"name", name}, {"type", interface.type}};
    if (!interface.hardwareAddress.empty()) attributes["hwAddress"] = interface.hardwareAddress;
    if (!interface.virtualAddresses.empty()) {
        attributes["virtualAddresses"] = join(interface.virtualAddresses);
    }
    return attributes;
}

KeyValPair describe(const std::string& name, const Interface& interface) {
    KeyValPair record{interface.configuration};
    record.pairs.merge(fixedAttributes(name, interface));
    return record;
}

bool isNumber(const std::string& text, int least, int most) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc{} && stop == end && number >= least && number <= most;
}

bool isOneOf(const State& state, const std::string& name, std::initializer_list<const char*> types) {
    const auto found = state.interfaces.find(name);
    return found != state.interfaces.end() && std::find(types.begin(), types.end(), found->second.type) != types.end();
}

/// Whether the configuration may hold this attribute. Attributes that the appliance does not know are kept.
bool isAcceptable(const State& state, const std::string& key, const std::string& value) {
    if (key == "enabled") return value == "true" || value == "false";
    if (key == "mode") return value == "static" || value == "dhcp";
    if (key == "ipAddress" || key == "netmask" || key == "gateway") return isIpAddress(value);
    if (key == "mtu") return isNumber(value, 68, 9216);
    if (key == "vlanId") return isNumber(value, 1, 4094);
    if (key == "parent") return isOneOf(state, value, {"ethernet", "aggregate"});
    if (key == "members") {
        const std::vector<std::string> members = split(value);
        return std::all_of(members.begin(), members.end(), [&](const std::string& member) {
            return isOneOf(state, member, {"ethernet"});
        });
    }
    return true;
}

template <typename Members>
void describe(Members& members, Interface& interface) {
    members("type", interface.type);
    members("hasLink", interface.hasLink);
    members("builtInHardwareAddress", interface.builtInHardwareAddress);
    if constexpr (Members::isReading) interface.hardwareAddress = interface.builtInHardwareAddress;
    members("hardwareAddress", interface.hardwareAddress);
    members("configuration", interface.configuration);
    members("virtualAddresses", interface.virtualAddresses);
    if constexpr (Members::isReading) {
        constexpr std::array types{"ethernet", "aggregate", "vlan", "loopback"};
        members.require(
            std::find(types.begin(), types.end(), interface.type) != types.end(),
            "type: must be ethernet, aggregate, vlan or loopback");
    }
}

void fromJson(const json::Node& node, State& state) {
    Reader::read(node, state.interfaces);
    Reader::forEachChild(node, [&](const json::Node& interface) {
        for (const auto& [key, value] : state.interfaces.at(std::string{interface.key}).configuration) {
            if (isAcceptable(state, key, value)) continue;
            throw json::Problem{
                interface.position, std::string{"configuration: "}.append(key).append(" must not be ").append(value)};
        }
    });
}
void toJson(json::Text& out, State& state) { Writer::write(out, state.interfaces); }

auto& memory = Memory<State>::make("interfaces");

bool isEnabled(const Interface& interface) { return valueOf(interface.configuration, "enabled") == "true"; }

/// Ends, since a VLAN stands on an interface of another type, and an aggregate on plain ones.
bool isUp(const State& state, const std::string& name) {
    const auto found = state.interfaces.find(name);
    if (found == state.interfaces.end() || !isEnabled(found->second)) return false;
    const Interface& interface = found->second;
    if (interface.type == "vlan") return isUp(state, valueOf(interface.configuration, "parent"));
    if (interface.type != "aggregate") return interface.hasLink;
    const std::vector<std::string> members = split(valueOf(interface.configuration, "members"));
    return std::any_of(members.begin(), members.end(), [&](const std::string& member) { return isUp(state, member); });
}

/// One attribute set per address, then one per member of an aggregate.
std::vector<KeyValPair> detailsOf(const State& state, const Interface& interface) {
    std::vector<KeyValPair> details;
    const std::string address = valueOf(interface.configuration, "ipAddress");
    if (!address.empty()) {
        details.push_back(
            {{{"address", address}, {"kind", "primary"}, {"netmask", valueOf(interface.configuration, "netmask")}}});
    }
    for (const std::string& virtualAddress : interface.virtualAddresses) {
        details.push_back({{{"address", virtualAddress}, {"kind", "virtual"}}});
    }
    for (const std::string& member : split(valueOf(interface.configuration, "members"))) {
        details.push_back({{{"member", member}, {"up", isUp(state, member) ? "true" : "false"}}});
    }
    return details;
}

/// The status of an interface of one of the types. Kept per thread and operation, which `Operation` stands
/// for.
template <auto Operation>
InterfaceStatus* statusOf(const std::string& name, std::initializer_list<const char*> types) {
    thread_local std::vector<KeyValPair> details;
    thread_local InterfaceStatus status;
    return memory.read([&](const State& state) -> InterfaceStatus* {
        if (!isOneOf(state, name, types)) return nullptr;
        const Interface& interface = state.interfaces.at(name);
        details = detailsOf(state, interface);
        status.isEnabled = isEnabled(interface);
        status.isUp = isUp(state, name);
        status.details.clear();
        for (KeyValPair& detail : details) status.details.push_back(&detail);
        return &status;
    });
}

/// What `change` answers for the interface, which it may change.
template <typename Change>
std::int32_t changeInterface(const std::string& name, Change change) {
    return memory.change([&](State& state) -> std::int32_t {
        const auto found = state.interfaces.find(name);
        return found == state.interfaces.end() ? notFound : change(state, found->second);
    });
}

bool hasAddress(const Interface& interface, const std::string& address) {
    return valueOf(interface.configuration, "ipAddress") == address ||
           std::find(interface.virtualAddresses.begin(), interface.virtualAddresses.end(), address) !=
               interface.virtualAddresses.end();
}

}  // namespace

std::vector<std::string>* getInterfaceNames() {
    return memory.read([](const State& state) {
        auto names = std::make_unique<std::vector<std::string>>();
        for (const auto& [name, interface] : state.interfaces) names->push_back(name);
        return names.release();
    });
}

bool getInterfaces(std::vector<KeyValPair*>& interfaces) {
    thread_local std::vector<KeyValPair> records;
    memory.read([&](const State& state) {
        records.clear();
        for (const auto& [name, interface] : state.interfaces) records.push_back(describe(name, interface));
    });
    for (KeyValPair& record : records) interfaces.push_back(&record);
    return true;
}

KeyValPair* getInterface(const std::string& name) {
    thread_local KeyValPair record;
    return memory.read([&](const State& state) -> KeyValPair* {
        const auto found = state.interfaces.find(name);
        if (found == state.interfaces.end()) return nullptr;
        record = describe(name, found->second);
        return &record;
    });
}

std::int32_t setInterface(KeyValPair& attributes) {
    const std::string name = valueOf(attributes.pairs, "name");
    return changeInterface(name, [&](const State& state, Interface& interface) -> std::int32_t {
        // What was read may be written back, changed or not, but for what does not belong to the
        // configuration.
        const Attributes fixed = fixedAttributes(name, interface);
        Attributes configuration;
        for (const auto& [key, value] : attributes.pairs) {
            if (key == "name" || key == "type" || key == "hwAddress" || key == "virtualAddresses") {
                if (value != valueOf(fixed, key)) return readOnly;
            } else if (isAcceptable(state, key, value)) {
                configuration[key] = value;
            } else {
                return malformed;
            }
        }
        interface.configuration = configuration;
        return 0;
    });
}

std::int32_t clearInterface(const std::string& name) {
    return changeInterface(name, [](const State&, Interface& interface) {
        interface.configuration = {{"enabled", "false"}};
        interface.virtualAddresses.clear();
        return 0;
    });
}

// NOLINTBEGIN(performance-unnecessary-value-param): that these take texts by value is fixed by the binary
// interface
InterfaceStatus* getInterfaceStatus(std::string name) {
    return statusOf<getInterfaceStatus>(name, {"ethernet", "loopback"});
}

InterfaceStatus* getAggregateStatus(std::string name) { return statusOf<getAggregateStatus>(name, {"aggregate"}); }

InterfaceStatus* getVLANStatus(std::string name) { return statusOf<getVLANStatus>(name, {"vlan"}); }

std::int32_t addVIPToInterface(std::string name, std::string address) {
    return changeInterface(name, [&](const State& state, Interface& interface) {
        if (!isIpAddress(address)) return malformed;
        for (const auto& [otherName, other] : state.interfaces) {
            if (hasAddress(other, address)) return alreadyExists;
        }
        interface.virtualAddresses.push_back(address);
        return 0;
    });
}

std::int32_t removeVIPFromInterface(std::string name, std::string address) {
    return changeInterface(name, [&](const State&, Interface& interface) {
        return std::erase(interface.virtualAddresses, address) > 0 ? 0 : notFound;
    });
}

std::int32_t addVIPToLoopback(std::string address) { return addVIPToInterface("lo", address); }

std::int32_t removeVIPFromLoopback(std::string address) { return removeVIPFromInterface("lo", address); }

std::int32_t setHWAddressImmediate(std::string name, std::string address) {
    return changeInterface(name, [&](const State&, Interface& interface) {
        if (interface.builtInHardwareAddress.empty()) return readOnly;
        if (!isHardwareAddress(address)) return malformed;
        interface.hardwareAddress = address;
        return 0;
    });
}

std::int32_t resetHWAddressImmediate(std::string name) {
    return changeInterface(name, [](const State&, Interface& interface) {
        interface.hardwareAddress = interface.builtInHardwareAddress;
        return 0;
    });
}
// NOLINTEND(performance-unnecessary-value-param)

}  // namespace talvern::ethernetInterfaces::simulated
