#include <cstring>
#include <limits>
#include <map>

#include "mocks/statusUtils.h"
#include "support/bridgeTest.h"

using namespace talvern::statusUtils;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;

namespace {

class HardwareStatusUtilsTest : public BridgeTest {
  protected:
    template <typename... Arguments>
    std::string ask(const std::string& native, Arguments... arguments) {
        return call("appliance/HardwareStatusUtils", native, arguments...).resultText;
    }

    StatusUtilsMock& hardware = mock<StatusUtilsMock>();
};

std::string sensor(const std::string& first, const std::string& limits) {
    return "Sensor{name=" + first + ", " + limits +
           ", lowerWarning=0.0, upperWarning=0.0, lowerCritical=0.0, upperCritical=0.0}";
}

TEST_F(HardwareStatusUtilsTest, GivesEachKindOfSensorInOrder) {
    const std::string none = "minimum=0.0, maximum=0.0";
    EXPECT_CALL(hardware, getFanStatus)
        .WillOnce(deliver<FanStatus>({{"b", "5400 rpm", -1, -1, false}, {"a", "", 0, 0, true}}));
    EXPECT_EQ(ask("_getFanStatus"), "[" + sensor("b, reading=5400 rpm, ok=false", none) + ", " +
                                        sensor("a, reading=, ok=true", none) + "]");

    EXPECT_CALL(hardware, getTempStatus)
        .WillOnce(deliver<TempStatus>({{"board", "35 C", -1, -1, -1, false}, {"inlet", "", 0, 0, 0, true}}));
    EXPECT_EQ(ask("_getTemperatureStatus"), "[" + sensor("board, reading=35 C, ok=false", none) + ", " +
                                                sensor("inlet, reading=, ok=true", none) + "]");

    EXPECT_CALL(hardware, getPowerStatus)
        .WillOnce(deliver<PowerStatus>({{"one", "on", true}, {"two", "off", false}}));
    EXPECT_EQ(ask("_getPowerStatus"), "[" + sensor("one, reading=on, ok=true", none) + ", " +
                                          sensor("two, reading=off, ok=false", none) + "]");

    EXPECT_CALL(hardware, getVoltageStatus)
        .WillOnce(deliver<VoltStatus>({{"5 V", "5 V", -1, 7, 5, true}, {"x", "y", 0, 4294967295, 0, false}}));
    EXPECT_EQ(ask("_getVoltageStatus"),
              "[" + sensor("5 V, reading=5 V, ok=true", "minimum=5.0, maximum=7.0") + ", " +
                  sensor("x, reading=y, ok=false", "minimum=0.0, maximum=4.294967295E9") + "]");
}

TEST_F(HardwareStatusUtilsTest, GivesVolumesWithTheirPartitions) {
    EXPECT_CALL(hardware, getVolumeStatus)
        .WillOnce(deliver<VolumeStatus>(
            {{"a", 1, {{"/", 5, 4, "ext4", true}, {"/b", -1, -2, "xfs", false}}, false, 99},
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
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver<DiskSnapShot*>({&full, &empty}));
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
    DiskSnapShot disk{};
    std::memset(disk.deviceName, 'd', sizeof disk.deviceName);
    disk.controller = 'X';  // follows at once
    std::memset(disk.location, 'l', sizeof disk.location);
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver<DiskSnapShot*>({&disk}));
    EXPECT_THAT(ask("_getRaidPhysicalDiskStatus"),
                testing::AllOf(testing::HasSubstr("deviceName=" + std::string(10, 'd') + ","),
                               testing::HasSubstr("location=" + std::string(33, 'l') + "}")));
}

TEST_F(HardwareStatusUtilsTest, NamesTheNullRecordInAListOfDisks) {
    DiskSnapShot disk{};
    EXPECT_CALL(hardware, getRaidPhysDiskStatus).WillOnce(deliver<DiskSnapShot*>({&disk, nullptr}));
    EXPECT_EQ(ask("_getRaidPhysicalDiskStatus"), "null");
    EXPECT_EQ(takeThrown(),
              "com.kvo.talvern.TalvernException: null record in the list of physical disks at index 1");
}

TEST_F(HardwareStatusUtilsTest, GivesTheLastFigureOfEachProcessor) {
    EXPECT_CALL(hardware, getCPUUsage)
        .WillOnce(deliver<CPUUsage>({{0, 15}, {1, 40}}))
        .WillOnce(deliver<CPUUsage>({{2, 5}, {2, 9}, {-1, -3}}));
    EXPECT_EQ(ask("_getCPUUsage"), "{0=15, 1=40}");
    EXPECT_EQ(ask("_getCPUUsage"), "{-1=-3, 2=9}");
    EXPECT_CALL(hardware, getCPUDetailedUsage).WillOnce(deliver<CPUUsage>({{3, 85}}));
    EXPECT_EQ(ask("_getCPUDetailedUsage"), "{3=85}");
}

TEST_F(HardwareStatusUtilsTest, GivesNullForAnEmptyListAndForAFailedReading) {
    DiskSnapShot disk{};
    const auto expectNull = [&](auto& expectation, auto list, const char* native) {
        expectation.WillOnce(deliver(list, false)).WillOnce(deliver(decltype(list){}, true));
        EXPECT_EQ(ask(native), "null") << native << " after a failed reading";
        EXPECT_EQ(ask(native), "null") << native << " with an empty list";
    };
    expectNull(EXPECT_CALL(hardware, getFanStatus), std::vector<FanStatus>(1), "_getFanStatus");
    expectNull(EXPECT_CALL(hardware, getTempStatus), std::vector<TempStatus>(1), "_getTemperatureStatus");
    expectNull(EXPECT_CALL(hardware, getPowerStatus), std::vector<PowerStatus>(1), "_getPowerStatus");
    expectNull(EXPECT_CALL(hardware, getVoltageStatus), std::vector<VoltStatus>(1), "_getVoltageStatus");
    expectNull(EXPECT_CALL(hardware, getVolumeStatus), std::vector<VolumeStatus>(1), "_getRaidVolumes");
    expectNull(EXPECT_CALL(hardware, getRaidPhysDiskStatus), std::vector{&disk},
               "_getRaidPhysicalDiskStatus");
    expectNull(EXPECT_CALL(hardware, getCPUUsage), std::vector<CPUUsage>(1), "_getCPUUsage");
    expectNull(EXPECT_CALL(hardware, getCPUDetailedUsage), std::vector<CPUUsage>(1), "_getCPUDetailedUsage");
}

TEST_F(HardwareStatusUtilsTest, GivesMemoryBitForBit) {
    const auto report = [](std::uint32_t total, std::uint32_t free, bool wasRead) {
        return DoAll(SetArgReferee<0>(total), SetArgReferee<1>(free), Return(wasRead));
    };
    for (const auto& [total, free, wasRead, javaTotal, javaFree] :
         {std::tuple{900U, 300U, true, "900", "300"},
          {0x80000000U, 0xFFFFFFFEU, true, "-2147483648", "-2"},
          {900U, 300U, false, "-1", "-1"}}) {
        EXPECT_CALL(hardware, getMemoryUse).Times(2).WillRepeatedly(report(total, free, wasRead));
        EXPECT_EQ(ask("_getTotalMemory"), javaTotal);
        EXPECT_EQ(ask("_getFreeMemory"), javaFree);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesBatteryTimesInMilliseconds) {
    constexpr std::int32_t latest = std::numeric_limits<std::int32_t>::max();
    for (const auto& [battery, wasRead, installed, expires] :
         {std::tuple{BatteryStatus{7, 1, 9}, true, "7000", "9000"},
          {BatteryStatus{0, 5, -2}, true, "-1", "-2000"},
          {BatteryStatus{latest, 5, 0}, true, "2147483647000", "-1"},
          {BatteryStatus{7, 1, 9}, false, "-1", "-1"}}) {
        EXPECT_CALL(hardware, getBatteryStatus)
            .Times(2)
            .WillRepeatedly(DoAll(SetArgReferee<0>(battery), Return(wasRead)));
        EXPECT_EQ(ask("_getBatteryInstallationTime"), installed);
        EXPECT_EQ(ask("_getBatteryExpirationTime"), expires);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesTheFlashUnlessTheStatusIsMinusOne) {
    for (const auto& [status, seen] : {std::pair{0, "FlashVolume{size=3, used=4}"},
                                       {5, "FlashVolume{size=3, used=4}"},
                                       {-2, "FlashVolume{size=3, used=4}"},
                                       {-1, "null"}}) {
        EXPECT_CALL(hardware, getFlashStatus)
            .WillOnce(DoAll(SetArgReferee<0>(FlashStatus{3, 4}), Return(status)));
        EXPECT_EQ(ask("_getFlashStatus"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, CountsIntrusionStatesFromMinusOne) {
    for (const auto& [state, seen] : {std::pair{-1, "UNKNOWN"}, {0, "INTACT"}, {1, "OPENED"}}) {
        EXPECT_CALL(hardware, getIntrusionStatus).WillOnce(Return(state));
        EXPECT_EQ(ask("_getIntrusionStatus"), seen);
    }
    for (const int state : {-2, 2, std::numeric_limits<int>::max()}) {
        EXPECT_CALL(hardware, getIntrusionStatus).WillOnce(Return(state));
        EXPECT_EQ(ask("_getIntrusionStatus"), "null");
        EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException"));
    }
}

TEST_F(HardwareStatusUtilsTest, PassesOnWhatThePlatformSays) {
    EXPECT_CALL(hardware, getUptime).WillOnce(Return(0x123456789A)).WillOnce(Return(-5));
    EXPECT_EQ(ask("_getUptime"), std::to_string(0x123456789A));
    EXPECT_EQ(ask("_getUptime"), "-5");
    EXPECT_CALL(hardware, clearIntrusionStatus).WillOnce(Return(0)).WillOnce(Return(-7));
    EXPECT_EQ(ask("_clearIntrusionStatus"), "0");
    EXPECT_EQ(ask("_clearIntrusionStatus"), "-7");
    for (const bool answer : {true, false}) {
        const std::string seen = answer ? "true" : "false";
        EXPECT_CALL(hardware, batteryReplaced).WillOnce(Return(answer));
        EXPECT_EQ(ask("_batteryReplaced"), seen);
        EXPECT_CALL(hardware, isServiceReady(ServiceStatus{-9}, 0)).WillOnce(Return(answer));
        EXPECT_EQ(ask("_isServiceReady", jint{-9}), seen);
        EXPECT_CALL(hardware, isNetServiceReady(ServiceStatus{9}, 0)).WillOnce(Return(answer));
        EXPECT_EQ(ask("_isNetServiceReady", jint{9}), seen);
        EXPECT_CALL(hardware, setLocateLED(answer));
        ask("_setLocateLED", answer);
    }
}

/// Where a class is looked up decides which error a caller sees who lacks it while the platform fails.
TEST_F(HardwareStatusUtilsTest, LooksClassesUpBeforeThePlatformIsAskedExceptForSensors) {
    const auto lookups = [&] {
        std::vector<std::string> classes;
        for (const JniTable::Call& jniCall : table.calls()) {
            if (std::string_view{jniCall.function} == "FindClass") classes.push_back(jniCall.detail);
        }
        return classes;
    };
    const std::string package = "com/kvo/talvern/appliance/";
    const std::map<std::string, std::vector<std::string>> expected{
        {"_getFanStatus", {}},
        {"_getRaidVolumes", {package + "RaidVolume", package + "RaidPartition"}},
        {"_getRaidPhysicalDiskStatus", {package + "DiskSnapShot"}},
        {"_getCPUUsage", {"java/util/HashMap", "java/lang/Integer"}},
        {"_getFlashStatus", {package + "FlashVolume"}},
        {"_getIntrusionStatus", {package + "HardwareStatusUtils$IntrusionStatus"}}};
    for (const auto& [native, classes] : expected) {
        std::vector<std::string> before;
        platform::mocks().beforeOperation = [&] { before = lookups(); };
        table.restart();
        ask(native);
        EXPECT_EQ(before, classes) << native;
    }
}

}  // namespace
