#include "mocks/services.h"

#include "platform/servicesUtils.h"
#include "platform/snmpUtils.h"

namespace talvern::servicesUtils {

using Mock = ServicesMock;

std::int32_t startTest(const char* name, std::int32_t n) { return operation(&Mock::startTest, name, n); }
std::int32_t stopTest(const char* name) { return operation(&Mock::stopTest, name); }
std::int32_t performTest(const char* name, std::int32_t n) { return operation(&Mock::performTest, name, n); }

}  // namespace talvern::servicesUtils

namespace talvern::snmpUtils {

bool startSNMP() { return operation(&SnmpMock::start); }
bool stopSNMP() { return operation(&SnmpMock::stop); }
bool restartSNMP() { return operation(&SnmpMock::restart); }

}  // namespace talvern::snmpUtils
