#include <climits>
#include <cstring>

#include "support/bridgeTest.h"

using namespace talvern;
using namespace talvern::statusUtils;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;

namespace {

using HardwareStatusUtilsTest = BridgeTest;

template <typename Entry>
using List = std::vector<Entry>;
using Disks = List<DiskSnapShot*>;

TEST_F(HardwareStatusUtilsTest, GivesEachListInOrderAndNullForNone) {
    const auto sensor = [](const std::string& first, const std::string& last = "minimum=0.0, maximum=0.0") {
        return "Sensor{" + first + ", " + last +
               ", lowerWarning=0.0, upperWarning=0.0, lowerCritical=0.0, upperCritical=0.0}";
    };
    expectRead<&statusUtils::getFanStatus>(
        "_getFanStatus", List<FanStatus>{{"b", "5400 rpm", -1, -1, false}, {"a", "", 0, 0, true}},
        "[" + sensor("name=b, reading=5400 rpm, ok=false") + ", " + sensor("name=a, reading=, ok=true") + "]");
    expectRead<&statusUtils::getTempStatus>(
        "_getTemperatureStatus", List<TempStatus>{{"b", "35 C", -1, -1, -1, false}, {"a", "", 0, 0, 0, true}},
        "[" + sensor("name=b, reading=35 C, ok=false") + ", " + sensor("name=a, reading=, ok=true") + "]");
    expectRead<&statusUtils::getPowerStatus>(
        "_getPowerStatus", List<PowerStatus>{{"b", "on", true}, {"a", "off", false}},
        "[" + sensor("name=b, reading=on, ok=true") + ", " + sensor("name=a, reading=off, ok=false") + "]");
    expectRead<&statusUtils::getVoltageStatus>(
        "_getVoltageStatus", List<VoltStatus>{{"b", "5 V", -1, 7, 5, true}, {"a", "", 0, UINT_MAX, 0, false}},
        "[" + sensor("name=b, reading=5 V, ok=true", "minimum=5.0, maximum=7.0") + ", " +
            sensor("name=a, reading=, ok=false", "minimum=0.0, maximum=4.294967295E9") + "]");
    expectRead<&statusUtils::getVolumeStatus>(
        "_getRaidVolumes",
        List<VolumeStatus>{
            {"a", 1, {{"/", 5, 4, "ext4", true}, {"/b", -1, -2, "xfs", false}}, false, 99}, {"c", 0, {}, true, -1}},
        "[RaidVolume{name=a, raidLevel=1, partitions=["
        "RaidPartition{mountPoint=/, size=5, used=4, fileSystem=ext4, mounted=true}, "
        "RaidPartition{mountPoint=/b, size=-1, used=-2, fileSystem=xfs, mounted=false}], "
        "ok=false, synchronised=99}, "
        "RaidVolume{name=c, raidLevel=0, partitions=[], ok=true, synchronised=-1}]");
    expectRead<&statusUtils::getCPUUsage>("_getCPUUsage", List<CPUUsage>{{2, 5}, {2, 9}, {-1, -3}}, "{-1=-3, 2=9}");
    expectRead<&statusUtils::getCPUDetailedUsage>("_getCPUDetailedUsage", List<CPUUsage>{{3, 85}}, "{3=85}");
}

TEST_F(HardwareStatusUtilsTest, GivesAllThirtyFieldsOfADiskAndReadsItsTextsNoFurther) {
    DiskSnapShot full{"sda",        200,      255,    1,      2,
                      "system",     -7,       {-1},   "ACME", "D480",
                      "SN1",        "1.04",   "5000", true,   false,
                      true,         false,    11,     12,     13,
                      14,           "online", {-128}, -15,    0x7FFFFFFFFFFFFFFF,
                      -0x100000000, {127},    {5},    "SATA", "front"};
    std::memset(full.deviceName, 'd', sizeof full.deviceName);  // without a NUL, as is the next
    std::memset(full.location, 'l', sizeof full.location);
    DiskSnapShot other{};
    other.isOnline = other.isPresent = true;  // so that no two flags are the same in both
    EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(Disks{&full, &other}));
    const std::string seen = ask("_getRaidPhysicalDiskStatus");
    EXPECT_THAT(seen, testing::HasSubstr("present=true, online=true, spare=false, failurePredicted=false"));
    EXPECT_THAT(
        seen,
        testing::StartsWith(
            "[DiskSnapShot{deviceName=dddddddddd, vendor=ACME, product=D480, serialNumber=SN1, revision=1.04, bay=-7, "
            "worldWideName=5000, controller=200, channel=255, target=1, logicalUnit=2, volumeName=system, "
            "temperature=-1, present=true, online=false, spare=true, failurePredicted=false, mediaErrors=11, "
            "otherErrors=12, powerOnHours=13, rotationSpeed=14, state=online, rebuilt=-128, blockSize=-15, "
            "size=9223372036854775807, used=-4294967296, wear=127, selfTestResult=5, interfaceType=SATA, "
            "location=" +
            std::string(33, 'l') + "}, "));
}

TEST_F(HardwareStatusUtilsTest, NamesTheNullRecordInAListOfDisks) {
    DiskSnapShot disk{};
    EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(Disks{nullptr, &disk}));
    EXPECT_EQ(ask("_getRaidPhysicalDiskStatus"), "null");
    EXPECT_THAT(takeThrown(), testing::EndsWith("null record in the list of physical disks at index 0"));
}

TEST_F(HardwareStatusUtilsTest, GivesMemoryBitForBit) {
    for (const auto& [total, free, wasRead, seen] :
         {std::tuple{900U, 300U, true, "900 300"},
          {0x80000000U, 0xFFFFFFFEU, true, "-2147483648 -2"},
          {900U, 300U, false, "-1 -1"}}) {
        EXPECT_CALL(mockOf<&statusUtils::getMemoryUse>(), Call(testing::Eq(0U), testing::Eq(0U)))
            .Times(2)
            .WillRepeatedly(DoAll(SetArgReferee<0>(total), SetArgReferee<1>(free), Return(wasRead)));
        EXPECT_EQ(ask("_getTotalMemory") + " " + ask("_getFreeMemory"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesBatteryTimesInMilliseconds) {
    for (const auto& [battery, wasRead, seen] :
         {std::tuple{BatteryStatus{7, 1, 9}, true, "7000 9000"},
          {BatteryStatus{0, 5, -2}, true, "-1 -2000"},
          {BatteryStatus{INT_MAX, 5, 0}, true, "2147483647000 -1"},
          {BatteryStatus{7, 1, 9}, false, "-1 -1"}}) {
        EXPECT_CALL(mockOf<&statusUtils::getBatteryStatus>(), Call).Times(2).WillRepeatedly(deliver(battery, wasRead));
        EXPECT_EQ(ask("_getBatteryInstallationTime") + " " + ask("_getBatteryExpirationTime"), seen);
    }
}

TEST_F(HardwareStatusUtilsTest, GivesTheFlashUnlessTheStatusIsMinusOne) {
    for (const int status : {0, 5, -2, -1}) {
        EXPECT_CALL(mockOf<&statusUtils::getFlashStatus>(), Call).WillOnce(deliver(FlashStatus{3, 4}, status));
        EXPECT_EQ(ask("_getFlashStatus"), status == -1 ? "null" : "FlashVolume{size=3, used=4}");
    }
}

}  // namespace
