#include <algorithm>
#include <cerrno>
#include <ctime>
#include <stdexcept>
#include <string_view>

#include "firmware.h"
#include "memory.h"
#include "platform/messaging.h"
#include "simulated.h"

namespace talvern::applianceUtils {

template <typename Members>
void describe(Members& members, ComponentFirmware& component) {
    members("component", component.component);
    members("firmware", component.firmware);
    if constexpr (Members::isReading) {
        // The firmware that runs gets the next numbers.
        members.require(component.component < 1'000'000, "component: must be below 1000000");
    }
}

template <typename Members>
void describe(Members& members, resetFileError& error) {
    members("file", error.file);
    members("error", error.error);
}

}  // namespace talvern::applianceUtils

namespace talvern::applianceUtils::simulated {

namespace {

using namespace talvern::applianceUtils;

constexpr std::int64_t endOfYear9999 = 253402300799;

struct Settings {
    std::string locale;
    std::string defaultLocale = "en_US";
    std::string timeZone = "UTC";
    std::int64_t clockOffset = 0;  ///< in seconds, against the host's clock
    bool areHostKeysStrong = false;
};

template <typename Members>
void describe(Members& members, Settings& settings) {
    members("locale", settings.locale);
    members("defaultLocale", settings.defaultLocale);
    members("timeZone", settings.timeZone);
    members("clockOffset", settings.clockOffset);
    members("areHostKeysStrong", settings.areHostKeysStrong);
    if constexpr (Members::isReading) {
        members.require(
            settings.clockOffset >= -endOfYear9999 && settings.clockOffset <= endOfYear9999,
            "clockOffset: is out of range");
    }
}

auto& settings = Memory<Settings>::make("settings");

/// What the appliance is, and what a device reset can't do with it.
struct Inventory {
    std::string manufacturer = "Talvern";
    std::string productName = "Management Appliance 42";
    std::string machineType = "7199";
    std::string model = "42X";
    std::string serialNumber = "TV0042";
    std::string biosVersion = "1.07";
    std::string biosDate = "2024-03-18";
    bool isVirtual = false;
    bool isAppliance = true;
    std::int32_t processors = 4;
    std::vector<ComponentFirmware> components{
        {1, "BIOS 1.07"}, {2, "BMC 4.20"}, {3, "RAID controller 23.34.0"}, {4, "disk SN05"}};
    std::vector<resetFileError> resetErrors{{"/var/log/audit.log", EBUSY}, {"/etc/ssh/ssh_host_rsa_key", EACCES}};
};

template <typename Members>
void describe(Members& members, Inventory& inventory) {
    members("manufacturer", inventory.manufacturer);
    members("productName", inventory.productName);
    members("machineType", inventory.machineType);
    members("model", inventory.model);
    members("serialNumber", inventory.serialNumber);
    members("biosVersion", inventory.biosVersion);
    members("biosDate", inventory.biosDate);
    members("isVirtual", inventory.isVirtual);
    members("isAppliance", inventory.isAppliance);
    members("processors", inventory.processors);
    members("components", inventory.components);
    members("resetErrors", inventory.resetErrors);
}

auto& inventory = Memory<Inventory>::make("inventory", OnReset::stays);

/// A copy of one thing in the inventory.
template <typename Part>
Part partOf(Part Inventory::*part) {
    return inventory.read([=](const Inventory& all) { return all.*part; });
}

bool isLocale(std::string_view locale) {
    return locale == "de_DE" || locale == "en_US" || locale == "fr_FR" || locale == "ja_JP";
}

}  // namespace

std::string getSerialNumber() { return partOf(&Inventory::serialNumber); }
std::string getMachineType() { return partOf(&Inventory::machineType); }
std::string getMTM() { return partOf(&Inventory::machineType) + '-' + partOf(&Inventory::model); }
bool isAppliance() { return partOf(&Inventory::isAppliance); }
std::int32_t getCPUCount() { return partOf(&Inventory::processors); }

std::string getLocale() {
    return settings.read(
        [](const Settings& state) { return state.locale.empty() ? state.defaultLocale : state.locale; });
}

bool setLocale(const char* locale, const char* modifier) {
    if (!isLocale(locale)) return false;
    // As in the names of the system's locales, such as de_DE@euro.
    const std::string name = modifier == nullptr ? locale : std::string{locale} + '@' + modifier;
    settings.change([&](Settings& state) { state.locale = name; });
    return true;
}

bool setDefaultLocale(const char* locale) {
    if (!isLocale(locale)) return false;
    settings.change([&](Settings& state) { state.defaultLocale = locale; });
    return true;
}

/// Date, time of day and time zone; always in UTC.
std::vector<std::string> getDateTime() {
    const std::time_t now = std::time(nullptr) + settings.read([](const Settings& state) { return state.clockOffset; });
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
    settings.change([&](Settings& state) { state.clockOffset = time - std::time(nullptr); });
    return true;
}

std::string getTimezone() {
    return settings.read([](const Settings& state) { return state.timeZone; });
}

bool setTimezone(const char* name) {
    const std::vector<std::string> known = getTimezones();
    if (std::find(known.begin(), known.end(), name) == known.end()) return false;
    settings.change([&](Settings& state) { state.timeZone = name; });
    return true;
}

std::vector<std::string> getTimezones() { return {"America/New_York", "Asia/Tokyo", "Europe/Berlin", "UTC"}; }

void getHardwareInfo(HWInfo& info) {
    info = inventory.read([](const Inventory& all) {
        return HWInfo{all.manufacturer, all.productName, all.machineType, all.serialNumber,
                      all.biosVersion,  all.biosDate,    all.isVirtual};
    });
}

bool getComponentInfo(std::vector<ComponentFirmware>& components) {
    components = partOf(&Inventory::components);
    std::int32_t number = components.empty() ? 0 : components.back().component;
    for (const std::string& firmware : installedFirmware()) components.push_back({++number, firmware});
    return true;
}

bool syncNTPServer(const char* server) {
    if (*server == '\0') return false;
    settings.change([](Settings& state) { state.clockOffset = 0; });  // each server has the host's time
    return true;
}

std::int32_t deviceRESET(std::vector<resetFileError>& errors) {
    resetMemory();
    errors = partOf(&Inventory::resetErrors);
    return errors.empty() ? 0 : 1;
}

bool areHostSSHKeysStrong() {
    return settings.read([](const Settings& state) { return state.areHostKeysStrong; });
}

std::int32_t resetHostSSHKeys() {
    settings.change([](Settings& state) { state.areHostKeysStrong = true; });
    return 0;
}

/// The kind stands before a colon; a text without one of these is a standard exception's.
void triggerException(const char* text) {
    const std::string_view all{text};
    if (all.starts_with("int:")) throw 42;
    if (all.starts_with("text:")) throw text;  // NOLINT(misc-throw-by-value-catch-by-reference): on purpose
    if (all.starts_with("validation:")) throw config::messaging::ValidationException{"text", text};
    if (all.starts_with("change:")) throw config::messaging::ConfigChangeException{1, text, {"first", "second"}};
    throw std::runtime_error{text};
}

}  // namespace talvern::applianceUtils::simulated
