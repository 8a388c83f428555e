#include "platform/statusUtils.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <iterator>

#include "memory.h"
#include "platform/log.h"

using namespace talvern::statusUtils;

namespace {

constexpr std::int32_t year = 365 * 24 * 60 * 60;
constexpr std::int32_t startOf2024 = 1'704'067'200;

struct State {
    BatteryStatus battery{startOf2024, 97, startOf2024 + 4 * year};
    std::int32_t intrusion = 1;
    std::size_t readings = 0;  ///< how often the processors' load was read
};
Memory<State> memory;

const auto started = std::chrono::steady_clock::now();

constexpr DiskSnapShot firstDisk{
    .deviceName = "sda",
    .controller = 0,
    .channel = 0,
    .target = 0,
    .logicalUnit = 0,
    .volumeName = "system",
    .bay = 0,
    .temperature = {34},
    .vendor = "TALVERN",
    .product = "D480",
    .serialNumber = "TA0001",
    .revision = "1.04",
    .worldWideName = "50004cf200000001",
    .isPresent = true,
    .isOnline = true,
    .isSpare = false,
    .isFailurePredicted = false,
    .mediaErrors = 0,
    .otherErrors = 0,
    .powerOnHours = 11'204,
    .rotationSpeed = 0,
    .state = "online",
    .rebuilt = {100},
    .blockSize = 512,
    .size = 480'103'981'056,
    .used = 480'103'981'056,
    .wear = {4},
    .selfTestResult = {0},
    .interfaceType = "SATA 6 Gb/s",
    .location = "front, bay 0",
};

DiskSnapShot secondDisk() {
    DiskSnapShot disk = firstDisk;
    disk.deviceName[2] = 'b';
    disk.target = 1;
    disk.bay = 1;
    disk.temperature = {36};
    disk.serialNumber[5] = '2';
    disk.worldWideName[15] = '2';
    disk.location[11] = '1';
    return disk;
}

/// The load rises and falls a little from one reading to the next, always in the same way.
std::int32_t wave() {
    constexpr std::int32_t steps[]{0, 3, 7, 9, 6, 2};
    return steps[memory.use([](State& state) { return state.readings++; }) % std::size(steps)];
}

bool isKnown(ServiceStatus service) {
    return service >= ServiceStatus::configuration && service <= ServiceStatus::userManager;
}

}  // namespace

namespace talvern::statusUtils {

bool getFanStatus(std::vector<FanStatus>& fans) {
    fans = {{"fan 1", "5400 rpm", 5400, 2000, true},
            {"fan 2", "5350 rpm", 5350, 2000, true},
            {"fan 3", "1250 rpm", 1250, 2000, false}};
    return true;
}

bool getTempStatus(std::vector<TempStatus>& temperatures) {
    temperatures = {{"processor", "48 C", 48, 80, 95, true},
                    {"board", "35 C", 35, 60, 75, true},
                    {"inlet", "24 C", 24, 40, 50, true}};
    return true;
}

bool getPowerStatus(std::vector<PowerStatus>& supplies) {
    supplies = {{"power supply 1", "on", true}, {"power supply 2", "on", true}};
    return true;
}

bool getVoltageStatus(std::vector<VoltStatus>& voltages) {
    voltages = {{"12 V", "12.04 V", 12'040, 12'600, 11'400, true},
                {"5 V", "5.02 V", 5'020, 5'250, 4'750, true},
                {"3.3 V", "3.31 V", 3'310, 3'465, 3'135, true},
                {"battery", "3.05 V", 3'050, 3'300, 2'700, true}};
    return true;
}

bool getVolumeStatus(std::vector<VolumeStatus>& volumes) {
    volumes = {{"system",
                1,
                {{"/", 40'960, 12'310, "ext4", true},
                 {"/var", 409'600, 96'204, "ext4", true},
                 {"/boot", 1'024, 212, "ext4", true}},
                true,
                100}};
    return true;
}

bool getRaidPhysDiskStatus(std::vector<DiskSnapShot*>& disks) {
    thread_local std::vector<DiskSnapShot> handedOut;
    handedOut = {firstDisk, secondDisk()};
    for (DiskSnapShot& disk : handedOut) disks.push_back(&disk);
    return true;
}

bool getCPUUsage(std::vector<CPUUsage>& usage) {
    const std::int32_t extra = wave();
    usage = {{0, 15 + extra}, {1, 24 - extra}, {2, 8 + extra}, {3, 11}};
    return true;
}

bool getCPUDetailedUsage(std::vector<CPUUsage>& usage) {
    const std::int32_t extra = wave();
    usage = {{0, 11 + extra}, {1, 5}, {2, 2}, {3, 82 - extra}};
    return true;
}

bool getMemoryUse(std::uint32_t& total, std::uint32_t& free) {
    total = 16'777'216;
    free = 9'412'608;
    return true;
}

std::int64_t getUptime() {
    constexpr std::chrono::seconds before =
        std::chrono::days{19};  // the appliance ran when this process came
    const auto since = std::chrono::steady_clock::now() - started;
    return std::chrono::floor<std::chrono::seconds>(before + since).count();
}

std::int32_t getFlashStatus(FlashStatus& flash) {
    flash = {3'840, 1'204};
    return 0;
}

bool getBatteryStatus(BatteryStatus& battery) {
    battery = memory.use([](State& state) { return state.battery; });
    return true;
}

bool batteryReplaced() {
    const std::int64_t now = std::time(nullptr);
    const auto seconds = [](std::int64_t time) {  // the record ends in 2038
        return static_cast<std::int32_t>(std::min<std::int64_t>(time, INT32_MAX));
    };
    memory.use([&](State& state) {
        state.battery = {seconds(now), 100, seconds(now + std::int64_t{4} * year)};
    });
    return true;
}

std::int32_t getIntrusionStatus() {
    return memory.use([](State& state) { return state.intrusion; });
}

std::int32_t clearIntrusionStatus() {
    memory.use([](State& state) { state.intrusion = 0; });
    return 0;
}

void setLocateLED(bool on) { log::trace(7, "locate LED %s", on ? "on" : "off"); }

bool isServiceReady(ServiceStatus service, std::int32_t) { return isKnown(service); }

bool isNetServiceReady(ServiceStatus service, std::int32_t) {
    return isKnown(service) && service != ServiceStatus::userManager;  // answers on the appliance only
}

}  // namespace talvern::statusUtils
