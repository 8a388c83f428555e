#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <chrono>
#include <strings.h>

#include "addresses.h"
#include "simulated.h"

// Nothing is asked of the machine's resolver or network: the answers are the same on every machine.

using asio::ip::tcp;
namespace hosts = talvern::hostsUtils::simulated;

namespace talvern::diagnosticUtils::simulated {

namespace {

constexpr std::chrono::seconds connectLimit{5};
constexpr auto ownAddress = "127.0.1.1";

bool isSameName(const std::string& one, const std::string& other) {
    return strcasecmp(one.c_str(), other.c_str()) == 0;
}

/// What the hosts table says; without it the appliance still knows itself. Empty: unknown host.
std::vector<std::string> resolve(const std::string& host) {
    if (isIpAddress(host)) return {host};
    std::vector<std::string> addresses = hosts::getAddresses();
    std::erase_if(addresses, [&](const std::string& address) {
        const auto names = hosts::getHostnames(address);
        return std::none_of(
            names.begin(), names.end(), [&](const std::string& name) { return isSameName(name, host); });
    });
    if (addresses.empty() && isSameName(host, "localhost")) return {"127.0.0.1"};
    if (addresses.empty() && isSameName(host, talvern::nodeName::simulated::get())) return {ownAddress};
    return addresses;
}

asio::error_code connect(const asio::ip::address& address, std::uint16_t port) {
    asio::io_context context;
    tcp::socket socket{context};
    asio::error_code failure = asio::error::timed_out;  // unless there is an outcome before
    socket.async_connect({address, port}, [&](asio::error_code outcome) { failure = outcome; });
    context.run_for(connectLimit);
    return failure;
}

}  // namespace

/// The result is the list of addresses, with spaces between them.
bool dnsResolve(const std::string& host, std::string& result) {
    const std::vector<std::string> addresses = resolve(host);
    for (const std::string& address : addresses) result += (result.empty() ? "" : " ") + address;
    return !addresses.empty();
}

/// Only addresses of this machine's loopback are really connected to.
bool tcpConnect(const std::string& host, std::int32_t port, std::string& error) {
    if (port < 1 || port > 65535) {
        error = "no such port";
        return false;
    }
    asio::error_code failure = asio::error::host_not_found;
    for (const std::string& text : resolve(host)) {
        const auto address = asio::ip::make_address(text);
        failure = asio::error::host_unreachable;
        if (address.is_loopback()) failure = connect(address, static_cast<std::uint16_t>(port));
        if (!failure) break;
    }
    error = failure ? failure.message() : "";
    return !failure;
}

/// Every host that can be resolved answers.
bool pingHost(const std::string& host, std::string& output) {
    const bool isKnown = dnsResolve(host, output);
    if (isKnown) output = host + " (" + output + ") answers";
    return isKnown;
}

std::int32_t networkReady() { return 1; }

}  // namespace talvern::diagnosticUtils::simulated
