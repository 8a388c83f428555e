#include "mocks/network.h"

#include "platform/ethernetInterfaces.h"
#include "platform/hostsUtils.h"
#include "platform/nameServers.h"
#include "platform/nodeName.h"
#include "platform/timeServers.h"

using Text = std::string;

namespace talvern::ethernetInterfaces {

using types::InterfaceStatus;
using types::KeyValPair;
using Mock = EthernetInterfacesMock;

Texts* getInterfaceNames() { return operation(&Mock::getInterfaceNames).release(); }
bool getInterfaces(std::vector<KeyValPair*>& list) { return operation(&Mock::getInterfaces, list); }
KeyValPair* getInterface(const Text& name) { return operation(&Mock::getInterface, name); }
std::int32_t setInterface(KeyValPair& attributes) { return operation(&Mock::setInterface, attributes); }
std::int32_t clearInterface(const Text& name) { return operation(&Mock::clearInterface, name); }
InterfaceStatus* getInterfaceStatus(Text name) { return operation(&Mock::getInterfaceStatus, name); }
InterfaceStatus* getAggregateStatus(Text name) { return operation(&Mock::getAggregateStatus, name); }
InterfaceStatus* getVLANStatus(Text name) { return operation(&Mock::getVLANStatus, name); }
std::int32_t addVIPToInterface(Text name, Text address) {
    return operation(&Mock::addVIPToInterface, name, address);
}
std::int32_t removeVIPFromInterface(Text name, Text address) {
    return operation(&Mock::removeVIPFromInterface, name, address);
}
std::int32_t addVIPToLoopback(Text address) { return operation(&Mock::addVIPToLoopback, address); }
std::int32_t removeVIPFromLoopback(Text address) { return operation(&Mock::removeVIPFromLoopback, address); }
std::int32_t setHWAddressImmediate(Text name, Text address) {
    return operation(&Mock::setHWAddressImmediate, name, address);
}
std::int32_t resetHWAddressImmediate(Text name) { return operation(&Mock::resetHWAddressImmediate, name); }

}  // namespace talvern::ethernetInterfaces

namespace talvern::hostsUtils {

using Mock = HostsUtilsMock;

Texts getAddresses() { return operation(&Mock::getAddresses); }
Texts getHostnames(const Text& address) { return operation(&Mock::getHostnames, address); }
bool setHostnames(const Text& address, const Texts& hostnames) {
    return operation(&Mock::setHostnames, address, hostnames);
}
bool deleteHostnames(const Text& address) { return operation(&Mock::deleteHostnames, address); }

}  // namespace talvern::hostsUtils

namespace talvern::nameServers {

using Mock = NameServersMock;

Texts getNameServers(Texts* companions) { return operation(&Mock::getNameServers, companions); }
std::int32_t setNameServers(const Texts& servers, const Texts* companions) {
    return operation(&Mock::setNameServers, servers, companions);
}
Texts getSearchDomains() { return operation(&Mock::getSearchDomains); }
std::int32_t setSearchDomains(const Texts& domains) { return operation(&Mock::setSearchDomains, domains); }

}  // namespace talvern::nameServers

namespace talvern::nodeName {

std::int32_t init() { return operation(&NodeNameMock::init); }
Text get() { return operation(&NodeNameMock::get); }
std::int32_t set(const Text& name) { return operation(&NodeNameMock::set, name); }

}  // namespace talvern::nodeName

namespace talvern::timeServers {

using Mock = TimeServersMock;

Texts getTimeServers(Texts* companions) { return operation(&Mock::getTimeServers, companions); }
std::int32_t setTimeServers(const Texts& servers, Texts* companions) {
    return operation(&Mock::setTimeServers, servers, companions);
}

}  // namespace talvern::timeServers
