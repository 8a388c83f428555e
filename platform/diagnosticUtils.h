#pragma once

#include <cstdint>
#include <string>

/// Tests of the network, run from the appliance.
/// Texts are modified UTF-8. Every operation may be called from any thread, may take long, and may throw.
/// Out-parameters are empty before the call.
namespace talvern::diagnosticUtils {

/// Resolves a host name. True: `result` says to what. False: `result` is not looked at.
bool dnsResolve(const std::string& host, std::string& result);

/// Opens a TCP connection to `host` and closes it. `port` comes from Java unchecked. False: `error` says why.
bool tcpConnect(const std::string& host, std::int32_t port, std::string& error);

/// Whether `host` answers a ping. `output`, what the ping printed, is not looked at.
bool pingHost(const std::string& host, std::string& output);

/// Whether the network is ready: 1 if it is, 2 if it is on the way. Java receives 3 for all others.
std::int32_t networkReady();

}  // namespace talvern::diagnosticUtils
