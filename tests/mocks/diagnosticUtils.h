#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>

struct DiagnosticUtilsMock {
    MOCK_METHOD(bool, dnsResolve, (const std::string& host, std::string& result));
    MOCK_METHOD(bool, tcpConnect, (const std::string& host, std::int32_t port, std::string& error));
    MOCK_METHOD(bool, pingHost, (const std::string& host, std::string& output));
    MOCK_METHOD(std::int32_t, networkReady, ());
};
