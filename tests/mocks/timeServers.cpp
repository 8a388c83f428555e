#include "mocks/timeServers.h"

#include "mocks/mock.h"
#include "platform/timeServers.h"

namespace talvern::timeServers {

std::vector<std::string> getTimeServers(std::vector<std::string>* companions) {
    return platform::operation(&TimeServersMock::getTimeServers, companions);
}
std::int32_t setTimeServers(const std::vector<std::string>& servers, std::vector<std::string>* companions) {
    return platform::operation(&TimeServersMock::setTimeServers, servers, companions);
}

}  // namespace talvern::timeServers
