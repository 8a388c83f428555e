#pragma once

/// The appliance's SNMP daemon.
/// Every operation may be called from any thread, and may throw.
namespace talvern::snmpUtils {

/// Starts the daemon. False if it was not started, also because it runs already.
bool startSNMP();

/// Stops the daemon. False if it was not stopped, also because it does not run.
bool stopSNMP();

/// Stops the daemon if it runs, and starts it. False if it does not run afterwards.
bool restartSNMP();

}  // namespace talvern::snmpUtils
