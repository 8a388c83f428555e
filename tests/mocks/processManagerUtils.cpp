#include "mocks/processManagerUtils.h"

#include "mocks/mock.h"

namespace talvern::processManagerUtils {

using Mock = ProcessManagerMock;
using platform::operation;

std::uint32_t getPlatformTraceMask() { return operation(&Mock::getPlatformTraceMask); }
std::int32_t getPlatformLogLevel(PlatformLogLevel& level) {
    return operation(&Mock::getPlatformLogLevel, level);
}
std::int32_t setPlatformLogLevel(PlatformLogLevel level) {
    return operation(&Mock::setPlatformLogLevel, level);
}
std::int32_t distributeLogging(unsigned int traceMask, int level) {
    return operation(&Mock::distributeLogging, traceMask, level);
}
std::int32_t requestReboot() { return operation(&Mock::requestReboot); }
std::int32_t requestShutdown() { return operation(&Mock::requestShutdown); }
std::int32_t signalApplicationIsUnhealthy(const std::string& process) {
    return operation(&Mock::signalApplicationIsUnhealthy, process);
}
std::int32_t signalIAmReady(const std::string& process, bool isRestart) {
    return operation(&Mock::signalIAmReady, process, isRestart);
}

}  // namespace talvern::processManagerUtils
