#include <climits>
#include <cstring>

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
            {"a", 1, {{"/", 5, 4, "ext4", true}, {"/b", -1, -2, "xfs", false}}, false, 99},
            {"none", 5, {}, true, -1},
            {"c", 0, {{"/c", 7, 6, "", true}}, true, 100}},
        "[RaidVolume{name=a, raidLevel=1, partitions=["
        "RaidPartition{mountPoint=/, size=5, used=4, fileSystem=ext4, mounted=true}, "
        "RaidPartition{mountPoint=/b, size=-1, used=-2, fileSystem=xfs, mounted=false}], "
        "ok=false, synchronised=99}, "
        "RaidVolume{name=none, raidLevel=5, partitions=[], ok=true, synchronised=-1}, "
        "RaidVolume{name=c, raidLevel=0, partitions=["
        "RaidPartition{mountPoint=/c, size=7, used=6, fileSystem=, mounted=true}], "
        "ok=true, synchronised=100}]");
    expectRead<&statusUtils::getCPUUsage>("_getCPUUsage", List<CPUUsage>{{2, 5}, {2, 9}, {-1, -3}}, "{-1=-3, 2=9}");
    expectRead<&statusUtils::getCPUDetailedUsage>("_getCPUDetailedUsage", List<CPUUsage>{{3, 85}}, "{3=85}");
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
    EXPECT_THAT(
        ask("_getRaidPhysicalDiskStatus"), testing::AllOf(
                                               testing::HasSubstr("deviceName=" + std::string(10, 'd') + ","),
                                               testing::HasSubstr("location=" + std::string(33, 'l') + "}")));
}

TEST_F(HardwareStatusUtilsTest, NamesTheNullRecordInAListOfDisks) {
    for (const auto& [disks, index] :
         {std::pair{Disks{&disk, nullptr}, std::string{"1"}}, {Disks{nullptr, &disk}, "0"}}) {
        EXPECT_CALL(mockOf<&statusUtils::getRaidPhysDiskStatus>(), Call).WillOnce(deliver(disks));
        EXPECT_EQ(ask("_getRaidPhysicalDiskStatus"), "null");
        EXPECT_THAT(takeThrown(), testing::EndsWith("null record in the list of physical disks at index " + index));
    }
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
