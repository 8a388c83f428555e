#include "mocks/ethernetInterfaces.h"

#include "mocks/mock.h"
#include "platform/ethernetInterfaces.h"

using talvern::types::InterfaceStatus;
using talvern::types::KeyValPair;
using Mock = EthernetInterfacesMock;

namespace talvern::ethernetInterfaces {

std::vector<std::string>* getInterfaceNames() {
    return platform::operation(&Mock::getInterfaceNames).release();
}
bool getInterfaces(std::vector<KeyValPair*>& interfaces) {
    return platform::operation(&Mock::getInterfaces, interfaces);
}
KeyValPair* getInterface(const std::string& name) { return platform::operation(&Mock::getInterface, name); }
std::int32_t setInterface(KeyValPair& attributes) {
    return platform::operation(&Mock::setInterface, attributes);
}
std::int32_t clearInterface(const std::string& name) {
    return platform::operation(&Mock::clearInterface, name);
}
InterfaceStatus* getInterfaceStatus(std::string name) {
    return platform::operation(&Mock::getInterfaceStatus, name);
}
InterfaceStatus* getAggregateStatus(std::string name) {
    return platform::operation(&Mock::getAggregateStatus, name);
}
InterfaceStatus* getVLANStatus(std::string name) { return platform::operation(&Mock::getVLANStatus, name); }
std::int32_t addVIPToInterface(std::string name, std::string address) {
    return platform::operation(&Mock::addVIPToInterface, name, address);
}
std::int32_t removeVIPFromInterface(std::string name, std::string address) {
    return platform::operation(&Mock::removeVIPFromInterface, name, address);
}
std::int32_t addVIPToLoopback(std::string address) {
    return platform::operation(&Mock::addVIPToLoopback, address);
}
std::int32_t removeVIPFromLoopback(std::string address) {
    return platform::operation(&Mock::removeVIPFromLoopback, address);
}
std::int32_t setHWAddressImmediate(std::string name, std::string address) {
    return platform::operation(&Mock::setHWAddressImmediate, name, address);
}
std::int32_t resetHWAddressImmediate(std::string name) {
    return platform::operation(&Mock::resetHWAddressImmediate, name);
}

}  // namespace talvern::ethernetInterfaces
