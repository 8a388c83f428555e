#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

/// Records of network interfaces. Their layout is part of the binary interface.
namespace talvern::types {

/// One set of attributes: text values by text keys, modified UTF-8. In ascending order of the keys' bytes.
struct KeyValPair {
    std::map<std::string, std::string> pairs;
};

static_assert(sizeof(KeyValPair) == sizeof(std::map<std::string, std::string>));
static_assert(!std::is_polymorphic_v<KeyValPair>);

/// The status of one interface.
struct InterfaceStatus {
    std::byte unread[17]{};  ///< the platform's own
    bool isEnabled = false;  ///< the configuration lets the interface work
    bool isUp = false;       ///< the interface can carry traffic
    std::byte alsoUnread[13]{};
    std::vector<KeyValPair*> details;  ///< never null pointers; such as an attribute set per address
};

static_assert(sizeof(bool) == 1);
static_assert(offsetof(InterfaceStatus, isEnabled) == 17);
static_assert(offsetof(InterfaceStatus, isUp) == 18);
static_assert(offsetof(InterfaceStatus, details) == 32);

}  // namespace talvern::types
