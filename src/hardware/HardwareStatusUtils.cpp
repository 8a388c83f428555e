#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "bridge/passOn.h"
#include "platform/statusUtils.h"

namespace talvern::bridge {

using statusUtils::DiskSnapShot;
using statusUtils::PartitionStatus;
using statusUtils::VolumeStatus;

namespace {

// What the Java constructor of each kind of sensor takes behind name, reading and flag: nothing, or six
// limits.

std::array<jdouble, 0> limitsOf(const statusUtils::FanStatus&) { return {}; }
std::array<jdouble, 0> limitsOf(const statusUtils::TempStatus&) { return {}; }
std::array<jdouble, 6> limitsOf(const statusUtils::PowerStatus&) { return {}; }
std::array<jdouble, 6> limitsOf(const statusUtils::VoltStatus& voltage) {
    // Crossed on purpose: the record has the maximum first, the Java constructor the minimum.
    return {static_cast<jdouble>(voltage.minimum), static_cast<jdouble>(voltage.maximum)};
}

/// A `Sensor[]` of what `read` delivers, in order; null if it fails or there is no sensor.
template <typename Status>
jobjectArray readSensors(JNIEnv* env, bool (*read)(std::vector<Status>&)) {
    constexpr bool hasLimits = !decltype(limitsOf(std::declval<Status>())){}.empty();
    using Create = std::conditional_t<
        hasLimits, Constructor<"(Ljava/lang/String;Ljava/lang/String;ZDDDDDD)V">,
        Constructor<"(Ljava/lang/String;Ljava/lang/String;Z)V">>;

    const std::vector<Status> sensors = readList(read);
    if (sensors.empty()) return nullptr;

    jclass sensorClass = findClass(env, "com/kvo/talvern/appliance/Sensor");
    const Create create{env, sensorClass};
    const Constructor<"()V"> createEmpty{env, sensorClass};
    return toJavaArray(env, sensorClass, createEmpty(), sensors, [&](const Status& sensor) {
        jstring name = toJavaString(env, sensor.name);
        jstring reading = toJavaString(env, sensor.reading);
        const auto createWith = [&](auto... limits) { return create(name, reading, sensor.isOk, limits...); };
        return std::apply(createWith, limitsOf(sensor));
    });
}

/// The text up to its NUL, or all of the array if there is none.
template <std::size_t Capacity>
jstring toJavaText(JNIEnv* env, const char (&text)[Capacity]) {
    return toJavaString(env, std::string(text, strnlen(text, Capacity)));
}

/// A `RaidVolume[]` of all RAID volumes with their partitions; null if the reading fails or there is none.
jobjectArray readRaidVolumes(JNIEnv* env) {
    jclass volumeClass = findClass(env, "com/kvo/talvern/appliance/RaidVolume");
    jclass partitionClass = findClass(env, "com/kvo/talvern/appliance/RaidPartition");
    const Constructor<"(Ljava/lang/String;I[Lcom/kvo/talvern/appliance/RaidPartition;ZI)V"> createVolume{
        env, volumeClass};
    const Constructor<"()V"> createEmptyVolume{env, volumeClass};
    const Constructor<"(Ljava/lang/String;IILjava/lang/String;Z)V"> createPartition{env, partitionClass};
    const Constructor<"()V"> createEmptyPartition{env, partitionClass};

    const std::vector<VolumeStatus> volumes = readList(statusUtils::getVolumeStatus);
    if (volumes.empty()) return nullptr;

    const auto toJavaPartition = [&](const PartitionStatus& partition) {
        jstring mountPoint = toJavaString(env, partition.mountPoint);
        jstring fileSystem = toJavaString(env, partition.fileSystem);
        return createPartition(mountPoint, partition.size, partition.used, fileSystem, partition.isMounted);
    };
    return toJavaArray(env, volumeClass, createEmptyVolume(), volumes, [&](const VolumeStatus& volume) {
        jstring name = toJavaString(env, volume.name);
        jobjectArray partitions =
            toJavaArray(env, partitionClass, createEmptyPartition(), volume.partitions, toJavaPartition);
        return createVolume(name, volume.raidLevel, partitions, volume.isOk, volume.synchronised);
    });
}

/// A `DiskSnapShot[]` of all physical disks; null if the reading fails or there is none.
/// @throws std::runtime_error  the platform's list has a null record
jobjectArray readDiskSnapShots(JNIEnv* env) {
    jclass diskClass = findClass(env, "com/kvo/talvern/appliance/DiskSnapShot");
    const Constructor<
        "(Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;I"
        "Ljava/lang/String;IIIILjava/lang/String;BZZZZIIIILjava/lang/String;BIJJBB"
        "Ljava/lang/String;Ljava/lang/String;)V">
        create{env, diskClass};
    const Constructor<"()V"> createEmpty{env, diskClass};

    const std::vector<DiskSnapShot*> disks = readList(statusUtils::getRaidPhysDiskStatus);
    if (disks.empty()) return nullptr;
    requireRecords(disks, "physical disks");

    return toJavaArray(env, diskClass, createEmpty(), disks, [&](const DiskSnapShot* disk) {
        jstring deviceName = toJavaText(env, disk->deviceName);
        jstring vendor = toJavaText(env, disk->vendor);
        jstring product = toJavaText(env, disk->product);
        jstring serialNumber = toJavaText(env, disk->serialNumber);
        jstring revision = toJavaText(env, disk->revision);
        jstring worldWideName = toJavaText(env, disk->worldWideName);
        jstring volumeName = toJavaText(env, disk->volumeName);
        jstring state = toJavaText(env, disk->state);
        jstring interfaceType = toJavaText(env, disk->interfaceType);
        jstring location = toJavaText(env, disk->location);
        return create(
            deviceName, vendor, product, serialNumber, revision, disk->bay, worldWideName, jint{disk->controller},
            jint{disk->channel}, jint{disk->target}, jint{disk->logicalUnit}, volumeName, disk->temperature.value,
            disk->isPresent, disk->isOnline, disk->isSpare, disk->isFailurePredicted, disk->mediaErrors,
            disk->otherErrors, disk->powerOnHours, disk->rotationSpeed, state, disk->rebuilt.value, disk->blockSize,
            disk->size, disk->used, disk->wear.value, disk->selfTestResult.value, interfaceType, location);
    });
}

/// A `HashMap` of what `read` delivers; null if it fails or delivers nothing.
jobject readUsage(JNIEnv* env, bool (*read)(std::vector<statusUtils::CPUUsage>&)) {
    const JavaHashMaps maps{env};
    const Constructor<"(I)V"> toInteger{env, findClass(env, "java/lang/Integer")};
    jobject map = maps.create();

    const std::vector<statusUtils::CPUUsage> usage = readList(read);
    if (usage.empty()) return nullptr;
    for (const auto& [key, percent] : usage) {
        jobject javaPercent = notNull(toInteger(percent));
        jobject javaKey = notNull(toInteger(key));
        maps.put(map, javaKey, javaPercent);
    }
    return map;
}

struct Memory {
    std::uint32_t total = 0;
    std::uint32_t free = 0;
};

/// One amount of memory, bit for bit; -1 if the reading fails.
jint readMemory(std::uint32_t Memory::*amount) {
    Memory memory;
    const bool wasRead = statusUtils::getMemoryUse(memory.total, memory.free);
    return wasRead ? static_cast<jint>(memory.*amount) : -1;
}

/// One time of the battery in milliseconds since 1970; -1 if it is unknown or the reading fails.
jlong readBatteryTime(std::int32_t statusUtils::BatteryStatus::*time) {
    statusUtils::BatteryStatus battery{};
    if (!statusUtils::getBatteryStatus(battery) || battery.*time == 0) return -1;
    return jlong{battery.*time} * 1000;
}

}  // namespace

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getFanStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readSensors(env, statusUtils::getFanStatus); });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getTemperatureStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readSensors(env, statusUtils::getTempStatus); });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getPowerStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readSensors(env, statusUtils::getPowerStatus); });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getVoltageStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readSensors(env, statusUtils::getVoltageStatus); });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getRaidVolumes(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readRaidVolumes(env); });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getRaidPhysicalDiskStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return readDiskSnapShots(env); });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getCPUUsage(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] { return readUsage(env, statusUtils::getCPUUsage); });
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getCPUDetailedUsage(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] { return readUsage(env, statusUtils::getCPUDetailedUsage); });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getTotalMemory(JNIEnv* env, jobject) {
    return entryPoint(env, jint{-1}, [] { return readMemory(&Memory::total); });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getFreeMemory(JNIEnv* env, jobject) {
    return entryPoint(env, jint{-1}, [] { return readMemory(&Memory::free); });
}

JNIEXPORT jlong JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getUptime(JNIEnv* env, jobject) {
    return passOn(env, jlong{-1}, statusUtils::getUptime);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getFlashStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&]() -> jobject {
        const Constructor<"(II)V"> create{env, findClass(env, "com/kvo/talvern/appliance/FlashVolume")};
        statusUtils::FlashStatus flash{};
        if (statusUtils::getFlashStatus(flash) == -1) return nullptr;
        return create(flash.size, flash.used);
    });
}

JNIEXPORT jlong JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getBatteryInstallationTime(JNIEnv* env, jobject) {
    return entryPoint(env, jlong{-1}, [] { return readBatteryTime(&statusUtils::BatteryStatus::installed); });
}

JNIEXPORT jlong JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getBatteryExpirationTime(JNIEnv* env, jobject) {
    return entryPoint(env, jlong{-1}, [] { return readBatteryTime(&statusUtils::BatteryStatus::expires); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1batteryReplaced(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, statusUtils::batteryReplaced);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1getIntrusionStatus(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] {
        using IntrusionStatus = JavaEnum<"com/kvo/talvern/appliance/HardwareStatusUtils$IntrusionStatus">;
        jobjectArray constants = IntrusionStatus{env}.constants();
        // The constants start at -1. Added without sign: the platform may answer any number.
        const auto state = static_cast<std::uint32_t>(statusUtils::getIntrusionStatus());
        return env->GetObjectArrayElement(constants, static_cast<jint>(state + 1));
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_HardwareStatusUtils__1clearIntrusionStatus(JNIEnv* env, jobject) {
    return passOn(env, jint{-1}, statusUtils::clearIntrusionStatus);
}

JNIEXPORT void JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1setLocateLED(JNIEnv* env, jobject, jboolean on) {
    passOn(env, statusUtils::setLocateLED, on);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1isServiceReady(JNIEnv* env, jobject, jint service) {
    return passOn(env, jboolean{JNI_FALSE}, statusUtils::isServiceReady, service, jint{0});
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_HardwareStatusUtils__1isNetServiceReady(JNIEnv* env, jobject, jint service) {
    return passOn(env, jboolean{JNI_FALSE}, statusUtils::isNetServiceReady, service, jint{0});
}
}

}  // namespace talvern::bridge
