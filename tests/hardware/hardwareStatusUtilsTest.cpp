#include <climits>
#include <cstring>
#include <regex>

#include "mocks/hardware.h"
#include "support/bridgeTest.h"

using namespace talvern::statusUtils;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;

namespace {

class HardwareStatusUtilsTest : public BridgeTest {
  protected:
    StatusUtilsMock& hardware = mock<StatusUtilsMock>();
    DiskSnapShot disk{};
};

template <typename Entry>
using List = std::vector<Entry>;
using Disks = List<DiskSnapShot*>;

TEST_F(HardwareStatusUtilsTest, GivesEachKindOfSensorInOrder) {
    const std::regex zeros{", lowerWarning=0.0, upperWarning=0.0, lowerCritical=0.0, upperCritical=0.0"};
    const auto sensors = [&](const char* native) { return std::regex_replace(ask(native), zeros, ""); };
    EXPECT_CALL(hardware, getFanStatus)
        .WillOnce(deliver(List<FanStatus>{{"b", "5400 rpm", -1, -1, false}, {"a", "", 0, 0, true}}));
    EXPECT_CALL(hardware, getTempStatus)
        .WillOnce(deliver(List<TempStatus>{{"b", "35 C", -1, -1, -1, false}, {"a", "", 0, 0, 0, true}}));
    EXPECT_CALL(hardware, getPowerStatus)
        .WillOnce(deliver(List<PowerStatus>{{"b", "on", true}, {"a", "off", false}}));
    EXPECT_CALL(hardware, getVoltageStatus)
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
    EXPECT_CALL(hardware, getVolumeStatus)
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
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver(Disks{&full, &empty}));
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
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver(Disks{&disk}));
    EXPECT_THAT(ask("_getRaidPhysicalDiskStatus"),
                testing::AllOf(testing::HasSubstr("deviceName=" + std::string(10, 'd') + ","),
                               testing::HasSubstr("location=" + std::string(33, 'l') + "}")));
}

TEST_F(HardwareStatusUtilsTest, NamesTheNullRecordInAListOfDisks) {
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver(Disks{&disk, nullptr}));
    EXPECT_EQ(ask("_getRaidPhysicalDiskStatus"), "null");
    EXPECT_EQ(takeThrown(),
              "com.kvo.talvern.TalvernException: null record in the list of physical disks at index 1");
}

TEST_F(HardwareStatusUtilsTest, GivesTheLastFigureOfEachProcessor) {
    EXPECT_CALL(hardware, getCPUUsage).WillOnce(deliver(List<CPUUsage>{{2, 5}, {2, 9}, {-1, -3}}));
    EXPECT_EQ(ask("_getCPUUsage"), "{-1=-3, 2=9}");
    EXPECT_CALL(hardware, getCPUDetailedUsage).WillOnce(deliver(List<CPUUsage>{{3, 85}}));
    EXPECT_EQ(ask("_getCPUDetailedUsage"), "{3=85}");
}

TEST_F(HardwareStatusUtilsTest, GivesNullForAnEmptyListAndForAFailedReading) {
    const auto expectNull = [&](auto& expectation, auto list, const char* native) {
        expectation.WillOnce(deliver(list, false)).WillOnce(deliver(decltype(list){}));
        for (const char* what : {"failed", "empty"}) EXPECT_EQ(ask(native), "null") << native << ' ' << what;
    };
    expectNull(EXPECT_CALL(hardware, getFanStatus), List<FanStatus>(1), "_getFanStatus");
    expectNull(EXPECT_CALL(hardware, getTempStatus), List<TempStatus>(1), "_getTemperatureStatus");
    expectNull(EXPECT_CALL(hardware, getPowerStatus), List<PowerStatus>(1), "_getPowerStatus");
    expectNull(EXPECT_CALL(hardware, getVoltageStatus), List<VoltStatus>(1), "_getVoltageStatus");
    expectNull(EXPECT_CALL(hardware, getVolumeStatus), List<VolumeStatus>(1), "_getRaidVolumes");
    expectNull(EXPECT_CALL(hardware, getRaidPhysDiskStatus), Disks{&disk}, "_getRaidPhysicalDiskStatus");
    expectNull(EXPECT_CALL(hardware, getCPUUsage), List<CPUUsage>(1), "_getCPUUsage");
    expectNull(EXPECT_CALL(hardware, getCPUDetailedUsage), List<CPUUsage>(1), "_getCPUDetailedUsage");
}

TEST_F(HardwareStatusUtilsTest, GivesMemoryBitForBit) {
    for (const auto& [total, free, wasRead, seen] : {std::tuple{900U, 300U, true, "900 300"},
                                                     {0x80000000U, 0xFFFFFFFEU, true, "-2147483648 -2"},
                                                     {900U, 300U, false, "-1 -1"}}) {
        EXPECT_CALL(hardware, getMemoryUse)
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
        EXPECT_CALL(hardware, getBatteryStatus).Times(2).WillRepeatedly(deliver(battery, wasRead));
        EXPECT_EQ(ask("_getBatteryInstallationTime") + " " + ask("_getBatteryExpirationTime"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesTheFlashUnlessTheStatusIsMinusOne) {
    for (const int status : {0, 5, -2, -1}) {
        EXPECT_CALL(hardware, getFlashStatus).WillOnce(deliver(FlashStatus{3, 4}, status));
        EXPECT_EQ(ask("_getFlashStatus"), status == -1 ? "null" : "FlashVolume{size=3, used=4}");
    }
}

TEST_F(HardwareStatusUtilsTest, CountsIntrusionStatesFromMinusOne) {
    for (const auto& [state, seen] : {std::pair{-1, "UNKNOWN"}, {0, "INTACT"}, {1, "OPENED"}}) {
        EXPECT_CALL(hardware, getIntrusionStatus).WillOnce(Return(state));
        EXPECT_EQ(ask("_getIntrusionStatus"), seen);
    }
    for (const int state : {-2, 2, INT_MAX}) {
        EXPECT_CALL(hardware, getIntrusionStatus).WillOnce(Return(state));
        EXPECT_EQ(ask("_getIntrusionStatus"), "null");
        EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException"));
    }
}

TEST_F(HardwareStatusUtilsTest, PassesOnWhatThePlatformSays) {
    EXPECT_CALL(hardware, getUptime).WillOnce(Return(0x123456789A));
    EXPECT_EQ(call("_getUptime").result.j, 0x123456789A);
    EXPECT_CALL(hardware, clearIntrusionStatus).WillOnce(Return(-7));
    EXPECT_EQ(ask("_clearIntrusionStatus"), "-7");
    for (const bool answer : {true, false}) {
        EXPECT_CALL(hardware, batteryReplaced).WillOnce(Return(answer));
        EXPECT_CALL(hardware, isServiceReady(ServiceStatus{-9}, 0)).WillOnce(Return(answer));
        EXPECT_CALL(hardware, isNetServiceReady(ServiceStatus{9}, 0)).WillOnce(Return(answer));
        EXPECT_CALL(hardware, setLocateLED(answer));
        EXPECT_EQ(call("_batteryReplaced").result.z, answer);
        EXPECT_EQ(call("_isServiceReady", -9).result.z, answer);
        EXPECT_EQ(call("_isNetServiceReady", 9).result.z, answer);
        call("_setLocateLED", answer);
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
        platform::mocks().beforeOperation = [&] { before = callsOf({"FindClass"}).size(); };
        table.restart();
        ask(native);
        EXPECT_EQ(before, expected) << native;
    }
}

}  // namespace
