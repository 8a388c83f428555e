#include "mocks/snmpUtils.h"

#include "mocks/mock.h"
#include "platform/snmpUtils.h"

namespace talvern::snmpUtils {

bool startSNMP() { return platform::operation(&SnmpMock::start); }
bool stopSNMP() { return platform::operation(&SnmpMock::stop); }
bool restartSNMP() { return platform::operation(&SnmpMock::restart); }

}  // namespace talvern::snmpUtils
