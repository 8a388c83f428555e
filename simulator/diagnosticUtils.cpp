#include "platform/diagnosticUtils.h"

#include <asio/connect.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <chrono>

// The host's own resolver and sockets.

using asio::ip::tcp;

namespace {

constexpr std::chrono::seconds connectLimit{5};

}  // namespace

namespace talvern::diagnosticUtils {

/// The result is the list of addresses, with spaces between them.
bool dnsResolve(const std::string& host, std::string& result) {
    asio::io_context context;
    asio::error_code failure;
    for (const auto& entry : tcp::resolver{context}.resolve(host, "", failure)) {
        if (!result.empty()) result += ' ';
        result += entry.endpoint().address().to_string();
    }
    if (failure) result = failure.message();
    return !failure;
}

bool tcpConnect(const std::string& host, std::int32_t port, std::string& error) {
    if (port < 1 || port > 65535) {
        error = "no such port";
        return false;
    }
    asio::io_context context;
    asio::error_code failure;
    const auto endpoints = tcp::resolver{context}.resolve(host, std::to_string(port), failure);
    tcp::socket socket{context};
    if (!failure) {
        failure = asio::error::timed_out;  // unless there is an outcome before
        asio::async_connect(socket, endpoints,
                            [&](asio::error_code outcome, const tcp::endpoint&) { failure = outcome; });
        context.run_for(connectLimit);
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

}  // namespace talvern::diagnosticUtils
