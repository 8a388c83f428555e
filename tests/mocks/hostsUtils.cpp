#include "mocks/hostsUtils.h"

#include "mocks/mock.h"
#include "platform/hostsUtils.h"

namespace talvern::hostsUtils {

std::vector<std::string> getAddresses() { return platform::operation(&HostsUtilsMock::getAddresses); }
std::vector<std::string> getHostnames(const std::string& address) {
    return platform::operation(&HostsUtilsMock::getHostnames, address);
}
bool setHostnames(const std::string& address, const std::vector<std::string>& hostnames) {
    return platform::operation(&HostsUtilsMock::setHostnames, address, hostnames);
}
bool deleteHostnames(const std::string& address) {
    return platform::operation(&HostsUtilsMock::deleteHostnames, address);
}

}  // namespace talvern::hostsUtils
