#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <gmock/gmock.h>

#include "platform/diagnosticUtils.h"

using namespace talvern;
using asio::ip::tcp;

namespace {

TEST(DiagnosticUtils, ConnectsToOpenPortsOnly) {
    asio::io_context context;
    tcp::acceptor acceptor{context, {asio::ip::address_v4::loopback(), 0}};
    const int port = acceptor.local_endpoint().port();
    std::string error;
    EXPECT_TRUE(diagnosticUtils::tcpConnect("127.0.0.1", port, error)) << error;
    acceptor.close();
    EXPECT_FALSE(diagnosticUtils::tcpConnect("127.0.0.1", port, error));
    EXPECT_EQ(error, "Connection refused");
    for (const int wrong : {-1, 0, 65536 + port}) {
        EXPECT_FALSE(diagnosticUtils::tcpConnect("127.0.0.1", wrong, error));
        EXPECT_EQ(error, "no such port");
    }
}

TEST(DiagnosticUtils, ResolvesAndPingsKnownHostsOnly) {
    for (const auto& [host, isKnown] : {std::pair{"127.0.0.1", true}, {"", false}, {"300.0.0.1.", false}}) {
        std::string result;
        std::string output;
        EXPECT_EQ(diagnosticUtils::dnsResolve(host, result), isKnown) << host;
        EXPECT_EQ(result == "127.0.0.1", isKnown) << result;
        EXPECT_EQ(diagnosticUtils::pingHost(host, output), isKnown) << host;
    }
}

}  // namespace
