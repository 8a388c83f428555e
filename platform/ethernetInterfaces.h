#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"

/// The network interfaces of the appliance, each known by its name.
///
/// Texts are modified UTF-8; which attributes an interface has is the platform's choice. Records handed out
/// by pointer stay the platform's: it must keep each unchanged until the same thread asks the same operation
/// again. Operations that return a number return a status, 0 for success, which reaches Java as it is; the
/// bridge itself answers 112 where it could not ask. Every operation may be called from any thread, and may
/// throw.
namespace talvern::ethernetInterfaces {

/// The names of all interfaces: a list made with `new`, which the caller deletes. Null stands for none.
std::vector<std::string>* getInterfaceNames();

/// Fills the empty list `interfaces` with the attributes of each interface, without null pointers. Returns
/// false if they could not be read.
bool getInterfaces(std::vector<types::KeyValPair*>& interfaces);

/// The attributes of the interface, or null if there is no such interface.
types::KeyValPair* getInterface(const std::string& name);

/// Replaces the attributes of one interface, which is named by one of them. The record is the caller's and
/// lives only during the call.
std::int32_t setInterface(types::KeyValPair& attributes);

/// Removes the configuration of the interface.
std::int32_t clearInterface(const std::string& name);

/// The status of a plain interface, an aggregate of several, or a VLAN on top of one; null if there is no
/// interface of that kind and name.
types::InterfaceStatus* getInterfaceStatus(std::string name);
types::InterfaceStatus* getAggregateStatus(std::string name);
types::InterfaceStatus* getVLANStatus(std::string name);

/// Adds a virtual IP address to the interface, or removes it.
std::int32_t addVIPToInterface(std::string name, std::string address);
std::int32_t removeVIPFromInterface(std::string name, std::string address);

/// The same for the loopback interface.
std::int32_t addVIPToLoopback(std::string address);
std::int32_t removeVIPFromLoopback(std::string address);

/// Gives the interface another hardware address at once, or its built-in one again.
std::int32_t setHWAddressImmediate(std::string name, std::string address);
std::int32_t resetHWAddressImmediate(std::string name);

}  // namespace talvern::ethernetInterfaces
