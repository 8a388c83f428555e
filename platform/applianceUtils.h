#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The appliance as a whole: identity, locale and time, inventory, reset.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw. A `const char*` is
/// valid only during the call and never null unless said so. The order of a record's fields is part of the
/// binary interface.
namespace talvern::applianceUtils {

/// What the appliance says about its hardware.
struct HWInfo {
    std::string manufacturer;
    std::string productName;
    std::string machineType;
    std::string serialNumber;
    std::string biosVersion;
    std::string biosDate;
    bool isVirtual = false;
};

/// The firmware of one component.
struct ComponentFirmware {
    std::int32_t component = 0;  ///< the platform's number of the component; may be negative
    std::string firmware;
};

/// A file that a device reset could not remove or restore.
struct resetFileError {  // NOLINT(readability-identifier-naming): the name is part of the interface
    std::string file;
    std::int32_t error = 0;  ///< the system's error number
};

/// Identity; each text is empty if the appliance does not know it.
std::string getSerialNumber();
std::string getMachineType();
/// Machine type and model in one text.
std::string getMTM();

/// Whether the system is an appliance, and not for instance a development machine.
bool isAppliance();

/// The number of processors.
std::int32_t getCPUCount();

/// The locale in use; may be empty.
std::string getLocale();

/// Changes the locale. `modifier` may be null; its meaning is the platform's. True: accepted.
bool setLocale(const char* locale, const char* modifier);

/// Changes the locale that is in use where none is set. True: accepted.
bool setDefaultLocale(const char* locale);

/// The date and time as texts; their number, order and form are the platform's.
std::vector<std::string> getDateTime();

/// Sets the clock to `time`, in the platform's own unit. False: the clock is unchanged, and `errorNumber`,
/// which is 0 before the call, says why, as `errno` does.
bool setDateTime(std::int64_t time, std::int32_t& errorNumber);

/// The name of the time zone in use; may be empty.
std::string getTimezone();

/// Changes the time zone. True: accepted.
bool setTimezone(const char* name);

/// The names of the time zones that `setTimezone` accepts.
std::vector<std::string> getTimezones();

/// Fills `info`, whose texts are empty before the call. What is left unset is reported as it is.
void getHardwareInfo(HWInfo& info);

/// Appends one entry per component to `components`, which is empty before the call. False: they could not be
/// read, and `components` is not looked at.
bool getComponentInfo(std::vector<ComponentFirmware>& components);

/// Sets the clock by the NTP server of this name or address. True: done.
bool syncNTPServer(const char* server);

/// Brings the appliance back to its initial state, and appends one entry to `errors`, which is empty before
/// the call, for each file that it could not. Returns a status, 0 for success; `errors` counts whatever the
/// status is. Java receives 3 after an exception.
std::int32_t deviceRESET(std::vector<resetFileError>& errors);

/// Whether all SSH host keys are strong.
bool areHostSSHKeysStrong();

/// Replaces the SSH host keys. Returns a status, 0 for success; Java receives 2 after an exception.
std::int32_t resetHostSSHKeys();

/// Throws, to show how a native failure travels to Java. What it throws is the platform's choice by `text`.
void triggerException(const char* text);

}  // namespace talvern::applianceUtils
