#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The state of the appliance's hardware: sensors, storage, processors, memory, battery, chassis.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw. The bridge passes
/// an empty list or a zeroed record, and keeps nothing from one call to the next.
/// The records' layouts are part of the interface; the assertions at the end of this file hold them.
namespace talvern::statusUtils {

// Sensors. Each reading appends one record per sensor to the list and returns whether it worked. An empty
// list counts as a failed reading.

struct FanStatus {
    std::string name;
    std::string reading;        ///< as text with its unit, such as "5400 rpm"
    std::int32_t speed;         ///< rpm; not read by the bridge
    std::int32_t minimumSpeed;  ///< rpm; not read by the bridge
    bool isOk;
};
bool getFanStatus(std::vector<FanStatus>& fans);

struct TempStatus {
    std::string name;
    std::string reading;   ///< as text with its unit, such as "41 C"
    std::int32_t celsius;  ///< not read by the bridge, nor are the two limits
    std::int32_t warningCelsius;
    std::int32_t criticalCelsius;
    bool isOk;
};
bool getTempStatus(std::vector<TempStatus>& temperatures);

struct PowerStatus {
    std::string name;
    std::string reading;  ///< as text, such as "on"
    bool isOk;
};
bool getPowerStatus(std::vector<PowerStatus>& supplies);

struct VoltStatus {
    std::string name;
    std::string reading;      ///< as text with its unit, such as "12.04 V"
    std::int32_t millivolts;  ///< not read by the bridge
    std::uint32_t maximum;    ///< the highest allowed voltage, in millivolts
    std::uint32_t minimum;    ///< the lowest allowed voltage, in millivolts
    bool isOk;
};
bool getVoltageStatus(std::vector<VoltStatus>& voltages);

// Storage. As above, an empty list counts as a failed reading.

struct PartitionStatus {
    std::string mountPoint;
    std::int32_t size;  ///< MiB
    std::int32_t used;  ///< MiB
    std::string fileSystem;
    bool isMounted;
};

struct VolumeStatus {
    std::string name;
    std::int32_t raidLevel;
    std::vector<PartitionStatus> partitions;  ///< may be empty
    bool isOk;
    std::int32_t synchronised;  ///< how far the disks agree, in percent
};
bool getVolumeStatus(std::vector<VolumeStatus>& volumes);

/// A small number that occupies four bytes. Only the first is read.
struct alignas(4) ByteSlot {
    std::int8_t value;
};

/// One physical disk. A text without a NUL ends with its array.
struct DiskSnapShot {
    char deviceName[10];
    std::uint8_t controller;
    std::uint8_t channel;
    std::uint8_t target;
    std::uint8_t logicalUnit;
    char volumeName[10];  ///< of the RAID volume that the disk belongs to
    std::int32_t bay;
    ByteSlot temperature;  ///< degrees Celsius
    char vendor[9];
    char product[17];
    char serialNumber[17];
    char revision[5];
    char worldWideName[17];
    bool isPresent;
    bool isOnline;
    bool isSpare;
    bool isFailurePredicted;
    std::int32_t mediaErrors;
    std::int32_t otherErrors;
    std::int32_t powerOnHours;
    std::int32_t rotationSpeed;  ///< rpm; 0 for a disk without moving parts
    char state[12];              ///< as text, such as "online"
    ByteSlot rebuilt;            ///< percent
    std::int32_t blockSize;      ///< bytes
    std::int64_t size;           ///< bytes
    std::int64_t used;           ///< bytes that belong to a volume
    ByteSlot wear;               ///< percent of the disk's life; -1 if the disk doesn't tell
    ByteSlot selfTestResult;     ///< of the last self-test: 0 passed, -1 never run, or the disk's own code
    char interfaceType[33];
    char location[33];
};

/// The records, none of them null, stay the platform's, which keeps them until the same thread asks again.
bool getRaidPhysDiskStatus(std::vector<DiskSnapShot*>& disks);

// Processors and memory

/// One figure of a table, such as the load of one processor. A later entry with the same key replaces an
/// earlier one.
struct CPUUsage {
    std::int32_t key;
    std::int32_t percent;
};

/// The load of each processor; the key is its number, from 0. An empty list counts as a failed reading.
bool getCPUUsage(std::vector<CPUUsage>& usage);

/// What all processors together do; the key is 0 for user programs, 1 for the system, 2 for waiting for
/// devices, 3 for nothing. An empty list counts as a failed reading.
bool getCPUDetailedUsage(std::vector<CPUUsage>& usage);

/// Memory in KiB. Returns whether the reading worked. Java sees the numbers as signed: from 2^31 on negative.
bool getMemoryUse(std::uint32_t& total, std::uint32_t& free);

/// Seconds since the appliance was started.
std::int64_t getUptime();

struct FlashStatus {
    std::int32_t size;  ///< MiB
    std::int32_t used;  ///< MiB
};

/// The internal flash storage. Returns -1 if it can't be read, any other value for success.
std::int32_t getFlashStatus(FlashStatus& flash);

// Battery and chassis

/// Times in seconds since 1970; 0 if unknown.
struct BatteryStatus {
    std::int32_t installed;
    std::int32_t charge;  ///< percent; not read by the bridge
    std::int32_t expires;
};
bool getBatteryStatus(BatteryStatus& battery);

/// Tells the appliance that its battery has been replaced today. Returns whether it took note.
bool batteryReplaced();

/// Whether the chassis was opened: -1 unknown, 0 intact, 1 opened since the state was last
/// cleared.
std::int32_t getIntrusionStatus();

/// Sets the intrusion state to intact. Returns a status, 0 for success.
std::int32_t clearIntrusionStatus();

/// Switches the light by which the appliance is found in its rack.
void setLocateLED(bool on);

// Services

/// A service of the platform. The bridge passes on any number that Java gives.
enum class ServiceStatus : std::int32_t {
    configuration = 0,
    processManager = 1,
    firmwareManager = 2,
    userManager = 3,
};

/// Whether the service runs; waits up to `seconds` for it. The bridge never waits.
bool isServiceReady(ServiceStatus service, std::int32_t seconds);

/// Whether the service answers from the network; waits likewise.
bool isNetServiceReady(ServiceStatus service, std::int32_t seconds);

static_assert(sizeof(std::string) == 32 && sizeof(std::vector<PartitionStatus>) == 24);

static_assert(offsetof(FanStatus, reading) == 32);
static_assert(offsetof(FanStatus, speed) == 64);
static_assert(offsetof(FanStatus, isOk) == 72);
static_assert(sizeof(FanStatus) == 80);

static_assert(offsetof(TempStatus, reading) == 32);
static_assert(offsetof(TempStatus, celsius) == 64);
static_assert(offsetof(TempStatus, isOk) == 76);
static_assert(sizeof(TempStatus) == 80);

static_assert(offsetof(PowerStatus, reading) == 32);
static_assert(offsetof(PowerStatus, isOk) == 64);
static_assert(sizeof(PowerStatus) == 72);

static_assert(offsetof(VoltStatus, reading) == 32);
static_assert(offsetof(VoltStatus, millivolts) == 64);
static_assert(offsetof(VoltStatus, maximum) == 68);
static_assert(offsetof(VoltStatus, minimum) == 72);
static_assert(offsetof(VoltStatus, isOk) == 76);
static_assert(sizeof(VoltStatus) == 80);

static_assert(offsetof(PartitionStatus, size) == 32);
static_assert(offsetof(PartitionStatus, used) == 36);
static_assert(offsetof(PartitionStatus, fileSystem) == 40);
static_assert(offsetof(PartitionStatus, isMounted) == 72);
static_assert(sizeof(PartitionStatus) == 80);

static_assert(offsetof(VolumeStatus, raidLevel) == 32);
static_assert(offsetof(VolumeStatus, partitions) == 40);
static_assert(offsetof(VolumeStatus, isOk) == 64);
static_assert(offsetof(VolumeStatus, synchronised) == 68);
static_assert(sizeof(VolumeStatus) == 72);

static_assert(offsetof(DiskSnapShot, deviceName) == 0);
static_assert(offsetof(DiskSnapShot, controller) == 10);
static_assert(offsetof(DiskSnapShot, channel) == 11);
static_assert(offsetof(DiskSnapShot, target) == 12);
static_assert(offsetof(DiskSnapShot, logicalUnit) == 13);
static_assert(offsetof(DiskSnapShot, volumeName) == 14);
static_assert(offsetof(DiskSnapShot, bay) == 24);
static_assert(offsetof(DiskSnapShot, temperature) == 28);
static_assert(offsetof(DiskSnapShot, vendor) == 32);
static_assert(offsetof(DiskSnapShot, product) == 41);
static_assert(offsetof(DiskSnapShot, serialNumber) == 58);
static_assert(offsetof(DiskSnapShot, revision) == 75);
static_assert(offsetof(DiskSnapShot, worldWideName) == 80);
static_assert(offsetof(DiskSnapShot, isPresent) == 97);
static_assert(offsetof(DiskSnapShot, isOnline) == 98);
static_assert(offsetof(DiskSnapShot, isSpare) == 99);
static_assert(offsetof(DiskSnapShot, isFailurePredicted) == 100);
static_assert(offsetof(DiskSnapShot, mediaErrors) == 104);
static_assert(offsetof(DiskSnapShot, otherErrors) == 108);
static_assert(offsetof(DiskSnapShot, powerOnHours) == 112);
static_assert(offsetof(DiskSnapShot, rotationSpeed) == 116);
static_assert(offsetof(DiskSnapShot, state) == 120);
static_assert(offsetof(DiskSnapShot, rebuilt) == 132);
static_assert(offsetof(DiskSnapShot, blockSize) == 136);
static_assert(offsetof(DiskSnapShot, size) == 144);
static_assert(offsetof(DiskSnapShot, used) == 152);
static_assert(offsetof(DiskSnapShot, wear) == 160);
static_assert(offsetof(DiskSnapShot, selfTestResult) == 164);
static_assert(offsetof(DiskSnapShot, interfaceType) == 168);
static_assert(offsetof(DiskSnapShot, location) == 201);
static_assert(sizeof(DiskSnapShot) == 240);

static_assert(offsetof(CPUUsage, percent) == 4 && sizeof(CPUUsage) == 8);
static_assert(offsetof(FlashStatus, used) == 4 && sizeof(FlashStatus) == 8);
static_assert(offsetof(BatteryStatus, installed) == 0);
static_assert(offsetof(BatteryStatus, expires) == 8);
static_assert(sizeof(BatteryStatus) == 12);

}  // namespace talvern::statusUtils
