#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <ctime>
#include <iterator>

#include "memory.h"
#include "platform/log.h"
#include "simulated.h"

namespace talvern::statusUtils {

// What the records are called in the appliance's file: as their fields.

template <typename Members>
void describe(Members& members, FanStatus& fan) {
    members("name", fan.name);
    members("reading", fan.reading);
    members("speed", fan.speed);
    members("minimumSpeed", fan.minimumSpeed);
    members("isOk", fan.isOk);
}

template <typename Members>
void describe(Members& members, TempStatus& temperature) {
    members("name", temperature.name);
    members("reading", temperature.reading);
    members("celsius", temperature.celsius);
    members("warningCelsius", temperature.warningCelsius);
    members("criticalCelsius", temperature.criticalCelsius);
    members("isOk", temperature.isOk);
}

template <typename Members>
void describe(Members& members, PowerStatus& supply) {
    members("name", supply.name);
    members("reading", supply.reading);
    members("isOk", supply.isOk);
}

template <typename Members>
void describe(Members& members, VoltStatus& voltage) {
    members("name", voltage.name);
    members("reading", voltage.reading);
    members("millivolts", voltage.millivolts);
    members("maximum", voltage.maximum);
    members("minimum", voltage.minimum);
    members("isOk", voltage.isOk);
}

template <typename Members>
void describe(Members& members, PartitionStatus& partition) {
    members("mountPoint", partition.mountPoint);
    members("size", partition.size);
    members("used", partition.used);
    members("fileSystem", partition.fileSystem);
    members("isMounted", partition.isMounted);
}

template <typename Members>
void describe(Members& members, VolumeStatus& volume) {
    members("name", volume.name);
    members("raidLevel", volume.raidLevel);
    members("partitions", volume.partitions);
    members("isOk", volume.isOk);
    members("synchronised", volume.synchronised);
}

template <typename Members>
void describe(Members& members, DiskSnapShot& disk) {
    members("deviceName", disk.deviceName);
    members("controller", disk.controller);
    members("channel", disk.channel);
    members("target", disk.target);
    members("logicalUnit", disk.logicalUnit);
    members("volumeName", disk.volumeName);
    members("bay", disk.bay);
    members("temperature", disk.temperature.value);
    members("vendor", disk.vendor);
    members("product", disk.product);
    members("serialNumber", disk.serialNumber);
    members("revision", disk.revision);
    members("worldWideName", disk.worldWideName);
    members("isPresent", disk.isPresent);
    members("isOnline", disk.isOnline);
    members("isSpare", disk.isSpare);
    members("isFailurePredicted", disk.isFailurePredicted);
    members("mediaErrors", disk.mediaErrors);
    members("otherErrors", disk.otherErrors);
    members("powerOnHours", disk.powerOnHours);
    members("rotationSpeed", disk.rotationSpeed);
    members("state", disk.state);
    members("rebuilt", disk.rebuilt.value);
    members("blockSize", disk.blockSize);
    members("size", disk.size);
    members("used", disk.used);
    members("wear", disk.wear.value);
    members("selfTestResult", disk.selfTestResult.value);
    members("interfaceType", disk.interfaceType);
    members("location", disk.location);
}

template <typename Members>
void describe(Members& members, FlashStatus& flash) {
    members("size", flash.size);
    members("used", flash.used);
}

template <typename Members>
void describe(Members& members, BatteryStatus& battery) {
    members("installed", battery.installed);
    members("charge", battery.charge);
    members("expires", battery.expires);
}

static const auto& namesOf(ServiceStatus) {
    static constexpr std::array names{"configuration", "processManager", "firmwareManager", "userManager"};
    return names;
}

}  // namespace talvern::statusUtils

using namespace talvern::statusUtils;

namespace talvern::statusUtils::simulated {

namespace {

constexpr std::int32_t year = 365 * 24 * 60 * 60;
constexpr std::int32_t startOf2024 = 1'704'067'200;
constexpr std::int64_t secondsBefore = std::int64_t{19} * 24 * 60 * 60;  // the appliance ran when it was first asked

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

/// Memory in KiB.
struct MemoryUse {
    std::uint32_t total = 16'777'216;
    std::uint32_t free = 9'412'608;
};

template <typename Members>
void describe(Members& members, MemoryUse& use) {
    members("total", use.total);
    members("free", use.free);
}

/// The loads of the processors, in percent.
struct Load {
    std::vector<std::int32_t> each{15, 24, 8, 11};
    std::int32_t user = 11;
    std::int32_t system = 5;
    std::int32_t waiting = 2;
    std::int32_t idle = 82;
    bool varies = true;  ///< a little from one reading to the next
};

template <typename Members>
void describe(Members& members, Load& load) {
    members("each", load.each);
    members("user", load.user);
    members("system", load.system);
    members("waiting", load.waiting);
    members("idle", load.idle);
    members("varies", load.varies);
}

struct State {
    std::vector<FanStatus> fans{
        {"fan 1", "5400 rpm", 5400, 2000, true},
        {"fan 2", "5350 rpm", 5350, 2000, true},
        {"fan 3", "1250 rpm", 1250, 2000, false}};
    std::vector<TempStatus> temperatures{
        {"processor", "48 C", 48, 80, 95, true},
        {"board", "35 C", 35, 60, 75, true},
        {"inlet", "24 C", 24, 40, 50, true}};
    std::vector<PowerStatus> powerSupplies{{"power supply 1", "on", true}, {"power supply 2", "on", true}};
    std::vector<VoltStatus> voltages{
        {"12 V", "12.04 V", 12'040, 12'600, 11'400, true},
        {"5 V", "5.02 V", 5'020, 5'250, 4'750, true},
        {"3.3 V", "3.31 V", 3'310, 3'465, 3'135, true},
        {"battery", "3.05 V", 3'050, 3'300, 2'700, true}};
    std::vector<VolumeStatus> volumes{
        {"system",
         1,
         {{"/", 40'960, 12'310, "ext4", true},
          {"/var", 409'600, 96'204, "ext4", true},
          {"/boot", 1'024, 212, "ext4", true}},
         true,
         100}};
    std::vector<DiskSnapShot> disks{firstDisk, secondDisk()};
    Load load;
    MemoryUse memory;
    std::int64_t started = std::time(nullptr) - secondsBefore;  ///< seconds since 1970
    FlashStatus flash{3'840, 1'204};
    BatteryStatus battery{startOf2024, 97, startOf2024 + 4 * year};
    std::int32_t intrusion = 1;
    bool isLocateLedOn = false;
    std::vector<ServiceStatus> services{
        ServiceStatus::configuration, ServiceStatus::processManager, ServiceStatus::firmwareManager,
        ServiceStatus::userManager};
    std::vector<ServiceStatus> netServices{
        ServiceStatus::configuration, ServiceStatus::processManager, ServiceStatus::firmwareManager};
};

template <typename Members>
void describe(Members& members, State& state) {
    members("fans", state.fans);
    members("temperatures", state.temperatures);
    members("powerSupplies", state.powerSupplies);
    members("voltages", state.voltages);
    members("volumes", state.volumes);
    members("disks", state.disks);
    members("load", state.load);
    members("memory", state.memory);
    members("started", state.started);
    members("flash", state.flash);
    members("battery", state.battery);
    members("intrusion", state.intrusion);
    members("isLocateLedOn", state.isLocateLedOn);
    members("services", state.services);
    members("netServices", state.netServices);
    if constexpr (Members::isReading) {
        members.require(state.started >= 0, "started: must not be before 1970");
        members.require(state.intrusion >= -1 && state.intrusion <= 1, "intrusion: must be 1, 0 or -1");
    }
}

auto& memory = Memory<State>::make("hardware", OnReset::stays);

/// The load rises and falls a little from one reading to the next, always in the same way.
std::int32_t wave(const Load& load) {
    constexpr std::int32_t steps[]{0, 3, 7, 9, 6, 2};
    static std::atomic<std::size_t> readings = 0;
    return load.varies ? steps[readings++ % std::size(steps)] : 0;
}

/// `percent` of the load with what it rises by in this reading.
std::int32_t varied(const Load& load, std::int32_t percent, std::int32_t by) {
    if (!load.varies) return percent;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{percent} + by, 0, 100));
}

/// Gives the list that `part` is of the state.
template <typename Record>
bool copyTo(std::vector<Record>& list, std::vector<Record> State::*part) {
    list = memory.read([=](const State& state) { return state.*part; });
    return true;
}

bool isOneOf(ServiceStatus service, std::vector<ServiceStatus> State::*running) {
    return memory.read([=](const State& state) {
        const std::vector<ServiceStatus>& all = state.*running;
        return std::find(all.begin(), all.end(), service) != all.end();
    });
}

}  // namespace

bool getFanStatus(std::vector<FanStatus>& fans) { return copyTo(fans, &State::fans); }

bool getTempStatus(std::vector<TempStatus>& temperatures) { return copyTo(temperatures, &State::temperatures); }

bool getPowerStatus(std::vector<PowerStatus>& supplies) { return copyTo(supplies, &State::powerSupplies); }

bool getVoltageStatus(std::vector<VoltStatus>& voltages) { return copyTo(voltages, &State::voltages); }

bool getVolumeStatus(std::vector<VolumeStatus>& volumes) { return copyTo(volumes, &State::volumes); }

bool getRaidPhysDiskStatus(std::vector<DiskSnapShot*>& disks) {
    thread_local std::vector<DiskSnapShot> handedOut;
    copyTo(handedOut, &State::disks);
    for (DiskSnapShot& disk : handedOut) disks.push_back(&disk);
    return true;
}

bool getCPUUsage(std::vector<CPUUsage>& usage) {
    const Load load = memory.read([](const State& state) { return state.load; });
    const std::int32_t extra = wave(load);
    constexpr std::int32_t directions[]{1, -1, 1, 0};
    for (std::size_t i = 0; i < load.each.size(); ++i) {
        usage.push_back({static_cast<std::int32_t>(i), varied(load, load.each[i], directions[i % 4] * extra)});
    }
    return true;
}

bool getCPUDetailedUsage(std::vector<CPUUsage>& usage) {
    const Load load = memory.read([](const State& state) { return state.load; });
    const std::int32_t extra = wave(load);
    usage = {
        {0, varied(load, load.user, extra)}, {1, load.system}, {2, load.waiting}, {3, varied(load, load.idle, -extra)}};
    return true;
}

bool getMemoryUse(std::uint32_t& total, std::uint32_t& free) {
    const MemoryUse use = memory.read([](const State& state) { return state.memory; });
    total = use.total;
    free = use.free;
    return true;
}

std::int64_t getUptime() {
    const std::int64_t started = memory.read([](const State& state) { return state.started; });
    return std::max<std::int64_t>(std::time(nullptr) - started, 0);
}

std::int32_t getFlashStatus(FlashStatus& flash) {
    flash = memory.read([](const State& state) { return state.flash; });
    return 0;
}

bool getBatteryStatus(BatteryStatus& battery) {
    battery = memory.read([](const State& state) { return state.battery; });
    return true;
}

bool batteryReplaced() {
    const std::int64_t now = std::time(nullptr);
    const auto seconds = [](std::int64_t time) {  // the record ends in 2038
        return static_cast<std::int32_t>(std::min<std::int64_t>(time, INT32_MAX));
    };
    memory.change([&](State& state) { state.battery = {seconds(now), 100, seconds(now + std::int64_t{4} * year)}; });
    return true;
}

std::int32_t getIntrusionStatus() {
    return memory.read([](const State& state) { return state.intrusion; });
}

std::int32_t clearIntrusionStatus() {
    memory.change([](State& state) { state.intrusion = 0; });
    return 0;
}

void setLocateLED(bool on) {
    memory.change([=](State& state) { state.isLocateLedOn = on; });
    log::trace(7, "locate LED %s", on ? "on" : "off");
}

bool isServiceReady(ServiceStatus service, std::int32_t) { return isOneOf(service, &State::services); }

bool isNetServiceReady(ServiceStatus service, std::int32_t) { return isOneOf(service, &State::netServices); }

}  // namespace talvern::statusUtils::simulated
