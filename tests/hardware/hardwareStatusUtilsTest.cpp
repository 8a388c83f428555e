#include <climits>
#include <cstring>
#include <regex>

#include "platform/statusUtils.h"
#include "support/bridgeTest.h"

using namespace talvern;
using namespace talvern::statusUtils;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;

namespace {

class HardwareStatusUtilsTest : public BridgeTest {
  protected:
    DiskSnapShot disk{};
};

template <typename Entry>
using List = std::vector<Entry>;
using Disks = List<DiskSnapShot*>;

TEST_F(HardwareStatusUtilsTest, GivesEachKindOfSensorInOrder) {
    const std::regex zeros{", lowerWarning=0.0, upperWarning=0.0, lowerCritical=0.0, upperCritical=0.0"};
    const auto sensors = [&](const char* native) { return std::regex_replace(ask(native), zeros, ""); };
    EXPECT_CALL(mockOf<&statusUtils::getFanStatus>(), Call)
        .WillOnce(deliver(List<FanStatus>{{"b", "5400 rpm", -1, -1, false}, {"a", "", 0, 0, true}}));
    EXPECT_CALL(mockOf<&statusUtils::getTempStatus>(), Call)
        .WillOnce(deliver(List<TempStatus>{{"b", "35 C", -1, -1, -1, false}, {"a", "", 0, 0, 0, true}}));
    EXPECT_CALL(mockOf<&statusUtils::getPowerStatus>(), Call)
        .WillOnce(deliver(List<PowerStatus>{{"b", "on", true}, {"a", "off", false}}));
    EXPECT_CALL(mockOf<&statusUtils::getVoltageStatus>(), Call)
        .WillOnce(deliver(List<VoltStatus>{{"b", "5 V", -1, 7, 5, true}, {"a", "", 0, UINT_MAX, 0, false}}));
    EXPECT_EQ(sensors("_getFanStatus"),
              "[Sensor{name=b, reading=5400 rpm, ok=false, minimum=0.0, maximum=0.0}, "
              "Sensor{name=a, reading=, ok=true, minimum=0.0, maximum=0.0}]");
    EXPECT_EQ(sensors("_getTemperatureStatus"),
              "[Sensor{name=b, reading=35 C, ok=false, minimum=0.0, maximum=0.0}, "
              "Sensor{name=a, reading=, ok=true, minimum=0.0, maximum=0.0}]");
    EXPECT_EQ(sensors("_getPowerStatus"),
              "[Sensor{name=b, reading=on, ok=true, minimum=0.0, maximum=0.0}, "
              "Sensor{name=a, reading=off, ok=false, minimum=0.0, maximum=0.0}]");
    EXPECT_EQ(sensors("_getVoltageStatus"),
              "[Sensor{name=b, reading=5 V, ok=true, minimum=5.0, maximum=7.0}, "
              "Sensor{name=a, reading=, ok=false, minimum=0.0, maximum=4.294967295E9}]");
}

TEST_F(HardwareStatusUtilsTest, GivesVolumesWithTheirPartitions) {
    EXPECT_CALL(mockOf<&statusUtils::getVolumeStatus>(), Call)
        .WillOnce(deliver(
            List<VolumeStatus>{{"a", 1, {{"/", 5, 4, "ext4", true}, {"/b", -1, -2, "xfs", false}}, false, 99},
                               {"none", 5, {}, true, -1},
                               {"c", 0, {{"/c", 7, 6, "", true}}, true, 100}}));
    EXPECT_EQ(ask("_getRaidVolumes"),
              "[RaidVolume{name=a, raidLevel=1, partitions=["
              "RaidPartition{mountPoint=/, size=5, used=4, fileSystem=ext4, mounted=true}, "
              "RaidPartition{mountPoint=/b, size=-1, used=-2, fileSystem=xfs, mounted=false}], "
              "ok=false, synchronised=99}, "
              "RaidVolume{name=none, raidLevel=5, partitions=[], ok=true, synchronised=-1}, "
              "RaidVolume{name=c, raidLevel=0, partitions=["
              "RaidPartition{mountPoint=/c, size=7, used=6, fileSystem=, mounted=true}], "
              "ok=true, synchronised=100}]");
}

TEST_F(HardwareStatusUtilsTest, GivesAllThirtyFieldsOfADisk) {
    DiskSnapShot full{"sda",        200,      255,    1,      2,
                      "system",     -7,       {-1},   "ACME", "D480",
                      "SN1",        "1.04",   "5000", true,   false,
                      true,         false,    11,     12,     13,
                      14,           "online", {-128}, -15,    0x7FFFFFFFFFFFFFFF,
                      -0x100000000, {127},    {5},    "SATA", "front"};
    DiskSnapShot empty{};
    empty.isOnline = empty.isPresent = true;  // so that no two flags are the same in both
    EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(Disks{&full, &empty}));
    EXPECT_EQ(
        ask("_getRaidPhysicalDiskStatus"),
        "[DiskSnapShot{deviceName=sda, vendor=ACME, product=D480, serialNumber=SN1, revision=1.04, bay=-7, "
        "worldWideName=5000, controller=200, channel=255, target=1, logicalUnit=2, volumeName=system, "
        "temperature=-1, present=true, online=false, spare=true, failurePredicted=false, mediaErrors=11, "
        "otherErrors=12, powerOnHours=13, rotationSpeed=14, state=online, rebuilt=-128, blockSize=-15, "
        "size=9223372036854775807, used=-4294967296, wear=127, selfTestResult=5, interfaceType=SATA, "
        "location=front}, "
        "DiskSnapShot{deviceName=, vendor=, product=, serialNumber=, revision=, bay=0, worldWideName=, "
        "controller=0, channel=0, target=0, logicalUnit=0, volumeName=, temperature=0, present=true, "
        "online=true, spare=false, failurePredicted=false, mediaErrors=0, otherErrors=0, powerOnHours=0, "
        "rotationSpeed=0, state=, rebuilt=0, blockSize=0, size=0, used=0, wear=0, selfTestResult=0, "
        "interfaceType=, location=}]");
}

TEST_F(HardwareStatusUtilsTest, ReadsTextsWithoutNulNoFurtherThanTheirArrays) {
    std::memset(disk.deviceName, 'd', sizeof disk.deviceName);
    disk.controller = 'X';  // follows at once
    std::memset(disk.location, 'l', sizeof disk.location);
    EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(Disks{&disk}));
    EXPECT_THAT(ask("_getRaidPhysicalDiskStatus"),
                testing::AllOf(testing::HasSubstr("deviceName=" + std::string(10, 'd') + ","),
                               testing::HasSubstr("location=" + std::string(33, 'l') + "}")));
}

TEST_F(HardwareStatusUtilsTest, NamesTheNullRecordInAListOfDisks) {
    EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(Disks{&disk, nullptr}));
    EXPECT_EQ(ask("_getRaidPhysicalDiskStatus"), "null");
    EXPECT_EQ(takeThrown(),
              "com.kvo.talvern.TalvernException: null record in the list of physical disks at index 1");
}

TEST_F(HardwareStatusUtilsTest, GivesTheLastFigureOfEachProcessor) {
    EXPECT_CALL(mockOf<&statusUtils::getCPUUsage>(), Call)
        .WillOnce(deliver(List<CPUUsage>{{2, 5}, {2, 9}, {-1, -3}}));
    EXPECT_EQ(ask("_getCPUUsage"), "{-1=-3, 2=9}");
    EXPECT_CALL(mockOf<&statusUtils::getCPUDetailedUsage>(), Call).WillOnce(deliver(List<CPUUsage>{{3, 85}}));
    EXPECT_EQ(ask("_getCPUDetailedUsage"), "{3=85}");
}

TEST_F(HardwareStatusUtilsTest, GivesNullForAnEmptyListAndForAFailedReading) {
    const auto expectNull = [&](auto& expectation, auto list, const char* native) {
        expectation.WillOnce(deliver(list, false)).WillOnce(deliver(decltype(list){}));
        for (const char* what : {"failed", "empty"}) EXPECT_EQ(ask(native), "null") << native << ' ' << what;
    };
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getFanStatus>(), Call), List<FanStatus>(1), "_getFanStatus");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getTempStatus>(), Call), List<TempStatus>(1),
               "_getTemperatureStatus");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getPowerStatus>(), Call), List<PowerStatus>(1),
               "_getPowerStatus");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getVoltageStatus>(), Call), List<VoltStatus>(1),
               "_getVoltageStatus");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getVolumeStatus>(), Call), List<VolumeStatus>(1),
               "_getRaidVolumes");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call), Disks{&disk},
               "_getRaidPhysicalDiskStatus");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getCPUUsage>(), Call), List<CPUUsage>(1), "_getCPUUsage");
    expectNull(EXPECT_CALL(mockOf<&statusUtils::getCPUDetailedUsage>(), Call), List<CPUUsage>(1),
               "_getCPUDetailedUsage");
}

TEST_F(HardwareStatusUtilsTest, GivesMemoryBitForBit) {
    for (const auto& [total, free, wasRead, seen] : {std::tuple{900U, 300U, true, "900 300"},
                                                     {0x80000000U, 0xFFFFFFFEU, true, "-2147483648 -2"},
                                                     {900U, 300U, false, "-1 -1"}}) {
        EXPECT_CALL(mockOf<&statusUtils::getMemoryUse>(), Call)
            .Times(2)
            .WillRepeatedly(DoAll(SetArgReferee<0>(total), SetArgReferee<1>(free), Return(wasRead)));
        EXPECT_EQ(ask("_getTotalMemory") + " " + ask("_getFreeMemory"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesBatteryTimesInMilliseconds) {
    for (const auto& [battery, wasRead, seen] : {std::tuple{BatteryStatus{7, 1, 9}, true, "7000 9000"},
                                                 {BatteryStatus{0, 5, -2}, true, "-1 -2000"},
                                                 {BatteryStatus{INT_MAX, 5, 0}, true, "2147483647000 -1"},
                                                 {BatteryStatus{7, 1, 9}, false, "-1 -1"}}) {
        EXPECT_CALL(mockOf<&statusUtils::getBatteryStatus>(), Call)
            .Times(2)
            .WillRepeatedly(deliver(battery, wasRead));
        EXPECT_EQ(ask("_getBatteryInstallationTime") + " " + ask("_getBatteryExpirationTime"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesTheFlashUnlessTheStatusIsMinusOne) {
    for (const int status : {0, 5, -2, -1}) {
        EXPECT_CALL(mockOf<&statusUtils::getFlashStatus>(), Call)
            .WillOnce(deliver(FlashStatus{3, 4}, status));
        EXPECT_EQ(ask("_getFlashStatus"), status == -1 ? "null" : "FlashVolume{size=3, used=4}");
    }
}

/// Where a class is looked up decides which error a caller sees who lacks it while the platform fails.
TEST_F(HardwareStatusUtilsTest, LooksClassesUpBeforeThePlatformIsAskedExceptForSensors) {
    for (const auto& [native, expected] : {std::pair{"_getFanStatus", 0U},
                                           {"_getRaidVolumes", 2U},
                                           {"_getRaidPhysicalDiskStatus", 1U},
                                           {"_getCPUUsage", 2U},
                                           {"_getFlashStatus", 1U},
                                           {"_getIntrusionStatus", 1U}}) {
        std::size_t before = 0;
        platform::beforeOperation = [&] { before = callsOf({"FindClass"}).size(); };
        table.restart();
        ask(native);
        EXPECT_EQ(before, expected) << native;
    }
}

}  // namespace
