#pragma once

#include <cstdint>
#include <string>

/// The appliance's process manager: restarts, the health of processes, how much all of them log.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw. A status is 0 for
/// success and any other value for failure; the bridge does not tell failures apart.
namespace talvern::processManagerUtils {

/// How much the appliance's processes log: messages of this level and the more important ones. The numbers
/// are the ordinals of the Java enum `ProcessManagerUtils.PlatformLogLevel`. The bridge passes on any number
/// that Java gives.
enum class PlatformLogLevel : std::int32_t {
    emergency = 0,
    alert = 1,
    critical = 2,
    error = 3,
    warning = 4,
    notice = 5,
    info = 6,
    debug = 7,
};

/// What is traced: a bit for each subject.
std::uint32_t getPlatformTraceMask();

/// Writes the log level to `level` and returns a status.
std::int32_t getPlatformLogLevel(PlatformLogLevel& level);

/// Changes the log level. Returns a status.
std::int32_t setPlatformLogLevel(PlatformLogLevel level);

/// Gives all processes a trace mask and a log level, both as they came from Java. The bridge ignores the
/// status.
std::int32_t distributeLogging(unsigned int traceMask, int level);

/// Asks for a restart of the appliance. What it returns is passed on to Java; so is that of the next one.
std::int32_t requestReboot();

/// Asks for the appliance to be switched off.
std::int32_t requestShutdown();

/// Says that the process called `process` needs attention. Returns a status.
std::int32_t signalApplicationIsUnhealthy(const std::string& process);

/// Says that the process called `process` has started. `isRestart` is always false here. Returns a status.
std::int32_t signalIAmReady(const std::string& process, bool isRestart);

}  // namespace talvern::processManagerUtils
