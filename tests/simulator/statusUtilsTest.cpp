#include <ctime>
#include <gmock/gmock.h>
#include <thread>

#include "platform/statusUtils.h"

using namespace talvern::statusUtils;

namespace {

TEST(StatusUtils, KeepsTheDisksOfAThreadUntilItAsksAgain) {
    std::vector<DiskSnapShot*> mine;
    ASSERT_TRUE(getRaidPhysDiskStatus(mine));
    ASSERT_EQ(mine.size(), 2U);
    mine[0]->bay = 99;
    std::thread{[] {
        std::vector<DiskSnapShot*> others;
        getRaidPhysDiskStatus(others);
        EXPECT_EQ(others[0]->bay, 0);
    }}.join();
    EXPECT_EQ(mine[0]->bay, 99);
}

TEST(StatusUtils, MirrorsItsVolumeOnTwoDisksThatHoldIt) {
    std::vector<VolumeStatus> volumes;
    std::vector<DiskSnapShot*> disks;
    ASSERT_TRUE(getVolumeStatus(volumes) && getRaidPhysDiskStatus(disks));
    std::int64_t partitioned = 0;
    for (const PartitionStatus& partition : volumes.at(0).partitions) {
        EXPECT_LE(partition.used, partition.size) << partition.mountPoint;
        partitioned += partition.size;
    }
    for (const DiskSnapShot* disk : disks) {
        EXPECT_EQ(disk->volumeName, volumes[0].name);
        EXPECT_LE(partitioned, disk->size >> 20);
    }
}

TEST(StatusUtils, TakesNoteOfANewBatteryAndClearsTheIntrusion) {
    EXPECT_EQ(getIntrusionStatus(), 1);
    EXPECT_TRUE(batteryReplaced());
    EXPECT_EQ(clearIntrusionStatus(), 0);
    BatteryStatus battery{};
    getBatteryStatus(battery);
    EXPECT_NEAR(battery.installed, static_cast<double>(std::time(nullptr)), 60);
    EXPECT_GT(battery.expires, battery.installed);
    EXPECT_EQ(getIntrusionStatus(), 0);
}

TEST(StatusUtils, KnowsItsServices) {
    EXPECT_TRUE(isServiceReady(ServiceStatus::userManager, 0));
    EXPECT_FALSE(isNetServiceReady(ServiceStatus::userManager, 0));
    for (const int unknown : {-1, 4}) EXPECT_FALSE(isServiceReady(ServiceStatus{unknown}, 0));
}

}  // namespace
