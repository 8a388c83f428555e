#include <gmock/gmock.h>

#include "platform/packetCapture.h"

using namespace talvern::packetCapture;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

InterfaceState start(const char* interfaceName, const char* fileName) {
    return sStartPacketCapture(interfaceName, fileName, "", 0, 0, 0, 0, false);
}

TEST(PacketCapture, RunsOncePerInterfaceUntilStoppedAndIsKnownUntilRemoved) {
    EXPECT_EQ(start("eth1", "1.pcap"), capturing);
    EXPECT_EQ(start("eth0", "0.pcap"), capturing);
    EXPECT_EQ(start("eth0", "other.pcap"), alreadyCapturing);
    EXPECT_EQ(sRemoveCapture("eth0"), 5);
    EXPECT_EQ(sStopPacketCapture("eth0"), 0);
    EXPECT_EQ(sStopPacketCapture("eth0"), 4);
    EXPECT_EQ(sGetCaptureInfo("eth0").state, stopped);
    EXPECT_EQ(sGetCaptureInfo("eth1").state, capturing);

    EXPECT_EQ(start("eth0", "again.pcap"), capturing);
    EXPECT_THAT(sGetCaptureInfo("eth0").files, ElementsAre("0.pcap", "again.pcap"));
    EXPECT_THAT(sGetAllCapturedInterfaces(), ElementsAre("eth0", "eth1"));

    for (const char* name : {"eth0", "eth1"}) {
        EXPECT_EQ(sStopPacketCapture(name), 0);
        EXPECT_EQ(sRemoveCapture(name), 0);
        EXPECT_EQ(sRemoveCapture(name), 2);
        EXPECT_EQ(sStopPacketCapture(name), 2);
    }
    EXPECT_THAT(sGetAllCapturedInterfaces(), IsEmpty());
}

TEST(PacketCapture, IsNotThereAfterARefusedStart) {
    EXPECT_EQ(start("eth9", "9.pcap"), unknownInterface);
    EXPECT_EQ(start("eth0", ""), invalidArguments);
    EXPECT_THAT(sGetAllCapturedInterfaces(), IsEmpty());
    EXPECT_EQ(sGetCaptureInfo("eth0").interfaceName, "eth0");
    EXPECT_EQ(sGetCaptureInfo("eth0").state, noCapture);
}

}  // namespace
