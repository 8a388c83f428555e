#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// How the appliance resolves host names.
/// Texts are modified UTF-8, lists are in order of preference. Every operation may be called from any thread,
/// and may throw.
namespace talvern::nameServers {

/// The addresses of the name servers. `companions`, unless null, is an empty list of the caller's and
/// receives the companion list: further entries that the platform keeps beside the name servers.
std::vector<std::string> getNameServers(std::vector<std::string>* companions);

/// Replaces the name servers and the companion list; a null `companions` stands for none. The bridge passes
/// on what `getNameServers` filled in before. Returns a status: 0 for success, any other value if the change
/// is refused as a whole.
std::int32_t setNameServers(const std::vector<std::string>& servers, const std::vector<std::string>* companions);

/// The domains in which a name without dots is looked up.
std::vector<std::string> getSearchDomains();

/// Replaces the search domains. Returns a status, as `setNameServers`.
std::int32_t setSearchDomains(const std::vector<std::string>& domains);

}  // namespace talvern::nameServers
