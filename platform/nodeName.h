#pragma once

#include <cstdint>
#include <string>

/// The name by which the appliance is known in its network.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw.
namespace talvern::nodeName {

/// Gives the appliance its initial name. Returns a status, 0 for success.
std::int32_t init();

/// The current name; empty if none is set.
std::string get();

/// Changes the name. Returns a status: 0 for success, any other value if the name is refused.
std::int32_t set(const std::string& name);

}  // namespace talvern::nodeName
