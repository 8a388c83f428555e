#include "mocks/lifecycle.h"

namespace talvern::firmwareManagerUtils {

using Mock = FirmwareManagerMock;

bool isReleaseKeyed() { return operation(&Mock::isReleaseKeyed); }
std::int32_t rollback() { return operation(&Mock::rollback); }
std::int32_t deletePrevious() { return operation(&Mock::deletePrevious); }
std::int32_t reflash(const std::string& image) { return operation(&Mock::reflash, image); }
std::int32_t upgrade(const std::string& image, bool force, bool keepPrevious, UpgradeCallback* callback) {
    return operation(&Mock::upgrade, image, force, keepPrevious, callback);
}

}  // namespace talvern::firmwareManagerUtils

namespace talvern::processManagerUtils {

using Mock = ProcessManagerMock;
using Level = PlatformLogLevel;

std::uint32_t getPlatformTraceMask() { return operation(&Mock::getPlatformTraceMask); }
std::int32_t getPlatformLogLevel(Level& level) { return operation(&Mock::getPlatformLogLevel, level); }
std::int32_t setPlatformLogLevel(Level level) { return operation(&Mock::setPlatformLogLevel, level); }
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
