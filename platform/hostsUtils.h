#pragma once

#include <string>
#include <vector>

/// The hosts table: host names that the appliance resolves by itself, listed under their address.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw.
namespace talvern::hostsUtils {

/// The addresses that have host names.
std::vector<std::string> getAddresses();

/// The host names of `address`; empty if it has none.
std::vector<std::string> getHostnames(const std::string& address);

/// Replaces the host names of `address`, also by none. Returns whether the change was accepted.
bool setHostnames(const std::string& address, const std::vector<std::string>& hostnames);

/// Removes `address` and its host names. Returns whether it was there.
bool deleteHostnames(const std::string& address);

}  // namespace talvern::hostsUtils
