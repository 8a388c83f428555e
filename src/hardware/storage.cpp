#include "hardware/storage.h"

#include <cstring>
#include <string>
#include <vector>

#include "bridge/marshalling.h"
#include "hardware/readList.h"
#include "platform/statusUtils.h"

namespace talvern::bridge {

using statusUtils::DiskSnapShot;
using statusUtils::PartitionStatus;
using statusUtils::VolumeStatus;

namespace {

/// The text up to its NUL, or all of the array if there is none.
template <std::size_t Capacity>
jstring toJavaText(JNIEnv* env, const char (&text)[Capacity]) {
    return toJavaString(env, std::string(text, strnlen(text, Capacity)));
}

}  // namespace

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

}  // namespace talvern::bridge
