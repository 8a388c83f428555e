#include "platform/applianceUtils.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <stdexcept>
#include <string_view>

#include "memory.h"
#include "platform/messaging.h"

namespace {

constexpr auto serialNumber = "TV0042";
constexpr auto machineType = "7199";
constexpr std::int64_t endOfYear9999 = 253402300799;

struct State {
    std::string locale;
    std::string defaultLocale = "en_US";
    std::string timezone = "UTC";
    std::int64_t clockOffset = 0;  ///< in seconds, against the host's clock
    bool areKeysStrong = false;
};
Memory<State> memory;

bool isLocale(std::string_view locale) {
    return locale == "de_DE" || locale == "en_US" || locale == "fr_FR" || locale == "ja_JP";
}

}  // namespace

namespace talvern::applianceUtils {

std::string getSerialNumber() { return serialNumber; }
std::string getMachineType() { return machineType; }
std::string getMTM() { return std::string{machineType} + "-42X"; }
bool isAppliance() { return true; }
std::int32_t getCPUCount() { return 4; }

std::string getLocale() {
    return memory.use([](State& state) { return state.locale.empty() ? state.defaultLocale : state.locale; });
}

bool setLocale(const char* locale, const char* modifier) {
    if (!isLocale(locale)) return false;
    // As in the names of the system's locales, such as de_DE@euro.
    const std::string name = modifier == nullptr ? locale : std::string{locale} + '@' + modifier;
    memory.use([&](State& state) { state.locale = name; });
    return true;
}

bool setDefaultLocale(const char* locale) {
    if (!isLocale(locale)) return false;
    memory.use([&](State& state) { state.defaultLocale = locale; });
    return true;
}

/// Date, time of day and time zone; always in UTC.
std::vector<std::string> getDateTime() {
    const std::time_t now = std::time(nullptr) + memory.use([](State& state) { return state.clockOffset; });
    std::tm utc{};
    gmtime_r(&now, &utc);
    char date[32];
    char timeOfDay[32];
    std::strftime(date, sizeof date, "%Y-%m-%d", &utc);
    std::strftime(timeOfDay, sizeof timeOfDay, "%H:%M:%S", &utc);
    return {date, timeOfDay, "UTC"};
}

/// `time` counts seconds since 1970.
bool setDateTime(std::int64_t time, std::int32_t& errorNumber) {
    if (time < 0 || time > endOfYear9999) {
        errorNumber = EINVAL;
        return false;
    }
    memory.use([&](State& state) { state.clockOffset = time - std::time(nullptr); });
    return true;
}

std::string getTimezone() {
    return memory.use([](State& state) { return state.timezone; });
}

bool setTimezone(const char* name) {
    const std::vector<std::string> known = getTimezones();
    if (std::find(known.begin(), known.end(), name) == known.end()) return false;
    memory.use([&](State& state) { state.timezone = name; });
    return true;
}

std::vector<std::string> getTimezones() { return {"America/New_York", "Asia/Tokyo", "Europe/Berlin", "UTC"}; }

void getHardwareInfo(HWInfo& info) {
    info = {"Talvern", "Management Appliance 42", machineType, serialNumber, "1.07", "2024-03-18", false};
}

bool getComponentInfo(std::vector<ComponentFirmware>& components) {
    components = {{1, "BIOS 1.07"}, {2, "BMC 4.20"}, {3, "RAID controller 23.34.0"}, {4, "disk SN05"}};
    return true;
}

bool syncNTPServer(const char* server) {
    if (*server == '\0') return false;
    memory.use([](State& state) { state.clockOffset = 0; });  // each server has the host's time
    return true;
}

std::int32_t deviceRESET(std::vector<resetFileError>& errors) {
    for (const auto& restore : restorers()) restore();
    errors = {{"/var/log/audit.log", EBUSY}, {"/etc/ssh/ssh_host_rsa_key", EACCES}};
    return 1;
}

bool areHostSSHKeysStrong() {
    return memory.use([](State& state) { return state.areKeysStrong; });
}

std::int32_t resetHostSSHKeys() {
    memory.use([](State& state) { state.areKeysStrong = true; });
    return 0;
}

/// The kind stands before a colon; a text without one of these is a standard exception's.
void triggerException(const char* text) {
    const std::string_view all{text};
    if (all.starts_with("int:")) throw 42;
    if (all.starts_with("text:")) throw text;  // NOLINT(misc-throw-by-value-catch-by-reference): on purpose
    if (all.starts_with("validation:")) throw config::messaging::ValidationException{"text", text};
    if (all.starts_with("change:"))
        throw config::messaging::ConfigChangeException{1, text, {"first", "second"}};
    throw std::runtime_error{text};
}

}  // namespace talvern::applianceUtils
