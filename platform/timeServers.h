#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The servers from which the appliance takes the time (NTP).
/// Texts are modified UTF-8, lists are in order of preference. Every operation may be called from any thread,
/// and may throw.
namespace talvern::timeServers {

/// The names or addresses of the time servers. `companions`, unless null, receives further entries that the
/// platform keeps beside them; the bridge passes null.
std::vector<std::string> getTimeServers(std::vector<std::string>* companions);

/// Replaces the time servers. `companions`, unless null, receives what the platform has to say about single
/// entries; the bridge passes null. Returns a status: 0 for success, any other value if the change is refused
/// as a whole.
std::int32_t setTimeServers(const std::vector<std::string>& servers, std::vector<std::string>* companions);

}  // namespace talvern::timeServers
