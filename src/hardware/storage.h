#pragma once

#include <jni.h>

namespace talvern::bridge {

/// A `RaidVolume[]` of all RAID volumes with their partitions; null if the reading fails or there is none.
jobjectArray readRaidVolumes(JNIEnv* env);

/// A `DiskSnapShot[]` of all physical disks; null if the reading fails or there is none.
/// @throws std::runtime_error  the platform's list has a null record
jobjectArray readDiskSnapShots(JNIEnv* env);

}  // namespace talvern::bridge
