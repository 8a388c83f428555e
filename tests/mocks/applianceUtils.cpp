#include "mocks/applianceUtils.h"

#include "mocks/mock.h"

namespace talvern::applianceUtils {

using Mock = ApplianceUtilsMock;
using platform::operation;

std::string getSerialNumber() { return operation(&Mock::getSerialNumber); }
std::string getMachineType() { return operation(&Mock::getMachineType); }
std::string getMTM() { return operation(&Mock::getMTM); }
bool isAppliance() { return operation(&Mock::isAppliance); }
std::int32_t getCPUCount() { return operation(&Mock::getCPUCount); }
std::string getLocale() { return operation(&Mock::getLocale); }
bool setLocale(const char* locale, const char* modifier) {
    return operation(&Mock::setLocale, locale, modifier);
}
bool setDefaultLocale(const char* locale) { return operation(&Mock::setDefaultLocale, locale); }
std::vector<std::string> getDateTime() { return operation(&Mock::getDateTime); }
bool setDateTime(std::int64_t time, std::int32_t& errorNumber) {
    return operation(&Mock::setDateTime, time, errorNumber);
}
std::string getTimezone() { return operation(&Mock::getTimezone); }
bool setTimezone(const char* name) { return operation(&Mock::setTimezone, name); }
std::vector<std::string> getTimezones() { return operation(&Mock::getTimezones); }
void getHardwareInfo(HWInfo& info) { operation(&Mock::getHardwareInfo, info); }
bool getComponentInfo(std::vector<ComponentFirmware>& components) {
    return operation(&Mock::getComponentInfo, components);
}
bool syncNTPServer(const char* server) { return operation(&Mock::syncNTPServer, server); }
std::int32_t deviceRESET(std::vector<resetFileError>& errors) {
    return operation(&Mock::deviceRESET, errors);
}
bool areHostSSHKeysStrong() { return operation(&Mock::areHostSSHKeysStrong); }
std::int32_t resetHostSSHKeys() { return operation(&Mock::resetHostSSHKeys); }
void triggerException(const char* text) { operation(&Mock::triggerException, text); }

}  // namespace talvern::applianceUtils
