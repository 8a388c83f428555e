#include "mocks/nameServers.h"

#include "mocks/mock.h"
#include "platform/nameServers.h"

namespace talvern::nameServers {

std::vector<std::string> getNameServers(std::vector<std::string>* companions) {
    return platform::operation(&NameServersMock::getNameServers, companions);
}
std::int32_t
setNameServers(const std::vector<std::string>& servers, const std::vector<std::string>* companions) {
    return platform::operation(&NameServersMock::setNameServers, servers, companions);
}
std::vector<std::string> getSearchDomains() {
    return platform::operation(&NameServersMock::getSearchDomains);
}
std::int32_t setSearchDomains(const std::vector<std::string>& domains) {
    return platform::operation(&NameServersMock::setSearchDomains, domains);
}

}  // namespace talvern::nameServers
