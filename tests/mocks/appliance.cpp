#include "mocks/appliance.h"

#include "platform/diagnosticUtils.h"

namespace talvern::applianceUtils {

using Mock = ApplianceUtilsMock;

std::string getSerialNumber() { return operation(&Mock::getSerialNumber); }
std::string getMachineType() { return operation(&Mock::getMachineType); }
std::string getMTM() { return operation(&Mock::getMTM); }
bool isAppliance() { return operation(&Mock::isAppliance); }
std::int32_t getCPUCount() { return operation(&Mock::getCPUCount); }
std::string getLocale() { return operation(&Mock::getLocale); }
bool setLocale(const char* locale, const char* mod) { return operation(&Mock::setLocale, locale, mod); }
bool setDefaultLocale(const char* locale) { return operation(&Mock::setDefaultLocale, locale); }
Texts getDateTime() { return operation(&Mock::getDateTime); }
bool setDateTime(std::int64_t time, std::int32_t& error) {
    return operation(&Mock::setDateTime, time, error);
}
std::string getTimezone() { return operation(&Mock::getTimezone); }
bool setTimezone(const char* name) { return operation(&Mock::setTimezone, name); }
Texts getTimezones() { return operation(&Mock::getTimezones); }
void getHardwareInfo(HWInfo& info) { operation(&Mock::getHardwareInfo, info); }
bool getComponentInfo(Mock::Components& components) { return operation(&Mock::getComponentInfo, components); }
bool syncNTPServer(const char* server) { return operation(&Mock::syncNTPServer, server); }
std::int32_t deviceRESET(Mock::FileErrors& errors) { return operation(&Mock::deviceRESET, errors); }
bool areHostSSHKeysStrong() { return operation(&Mock::areHostSSHKeysStrong); }
std::int32_t resetHostSSHKeys() { return operation(&Mock::resetHostSSHKeys); }
void triggerException(const char* text) { operation(&Mock::triggerException, text); }

}  // namespace talvern::applianceUtils

namespace talvern::diagnosticUtils {

using Mock = DiagnosticUtilsMock;
using Text = std::string;

bool dnsResolve(const Text& host, Text& result) { return operation(&Mock::dnsResolve, host, result); }
bool tcpConnect(const Text& host, std::int32_t port, Text& error) {
    return operation(&Mock::tcpConnect, host, port, error);
}
bool pingHost(const Text& host, Text& output) { return operation(&Mock::pingHost, host, output); }
std::int32_t networkReady() { return operation(&Mock::networkReady); }

}  // namespace talvern::diagnosticUtils
