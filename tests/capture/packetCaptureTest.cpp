#include <climits>

#include "platform/packetCapture.h"
#include "support/bridgeTest.h"

namespace {

class PacketCaptureTest : public BridgeTest {
  protected:
    std::string start(jint maxBytes, jint maxSeconds, jint maxPackets) {
        return ask("_startPacketCapture", "interface", "file", "filter", 0, maxBytes, maxSeconds, maxPackets);
    }
};

TEST_F(PacketCaptureTest, RejectsNegativeLimitsWithoutAskingThePlatform) {
    EXPECT_EQ(start(-1, 0, 0), "INVALID_ARGUMENTS");
    EXPECT_EQ(start(0, -1, 0), "INVALID_ARGUMENTS");
    EXPECT_EQ(start(0, 0, INT_MIN), "INVALID_ARGUMENTS");
    EXPECT_EQ(platform::operationCount(), 0U);
}

TEST_F(PacketCaptureTest, AsksForTheConstantsOnceAndBeforeAnyString) {
    start(0, 0, 0);
    const Texts calls = callsOf({"CallStaticObjectMethodA", "GetStringUTFChars"});
    EXPECT_EQ(calls.front(), "CallStaticObjectMethodA");
    EXPECT_EQ(std::ranges::count(calls, "CallStaticObjectMethodA"), 1);
}

}  // namespace
