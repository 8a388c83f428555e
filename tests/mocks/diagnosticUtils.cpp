#include "mocks/diagnosticUtils.h"

#include "mocks/mock.h"
#include "platform/diagnosticUtils.h"

namespace talvern::diagnosticUtils {

using Mock = DiagnosticUtilsMock;
using platform::operation;

bool dnsResolve(const std::string& host, std::string& result) {
    return operation(&Mock::dnsResolve, host, result);
}
bool tcpConnect(const std::string& host, std::int32_t port, std::string& error) {
    return operation(&Mock::tcpConnect, host, port, error);
}
bool pingHost(const std::string& host, std::string& output) {
    return operation(&Mock::pingHost, host, output);
}
std::int32_t networkReady() { return operation(&Mock::networkReady); }

}  // namespace talvern::diagnosticUtils
