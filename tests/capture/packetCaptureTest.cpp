#include <climits>

#include "mocks/capture.h"
#include "support/bridgeTest.h"

using testing::_;
using testing::Return;
using namespace talvern::packetCapture;

namespace {

class PacketCaptureTest : public BridgeTest {
  protected:
    std::string start(jint snapLength = 0, jint maxBytes = 0, jint maxSeconds = 0, jint maxPackets = 0) {
        return ask("_startPacketCapture", "interface", "file", "filter", snapLength, maxBytes, maxSeconds,
                   maxPackets);
    }

    PacketCaptureMock& captures = mock<PacketCaptureMock>();
};

TEST_F(PacketCaptureTest, MapsTheArgumentsOfAStart) {
    EXPECT_CALL(captures, start("interface", "file", "filter", 1, 2, 3, 4, false));
    EXPECT_CALL(captures, start(_, _, _, 4294967295U, 0, 0, 0, false));
    EXPECT_CALL(captures, start(_, _, _, 0x80000000U, INT_MAX, INT_MAX, INT_MAX, false));
    start(1, 2, 3, 4);
    start(-1);
    start(INT_MIN, INT_MAX, INT_MAX, INT_MAX);
}

TEST_F(PacketCaptureTest, RejectsNegativeLimitsWithoutAskingThePlatform) {
    EXPECT_CALL(captures, start).Times(0);
    EXPECT_EQ(start(0, -1, 0, 0), "INVALID_ARGUMENTS");
    EXPECT_EQ(start(0, 0, -1, 0), "INVALID_ARGUMENTS");
    EXPECT_EQ(start(0, 0, 0, INT_MIN), "INVALID_ARGUMENTS");
}

TEST_F(PacketCaptureTest, AsksForTheConstantsOnceAndBeforeAnyString) {
    start();
    const Texts calls = callsOf({"CallStaticObjectMethodA", "GetStringUTFChars"});
    EXPECT_EQ(calls.front(), "CallStaticObjectMethodA");
    EXPECT_EQ(std::ranges::count(calls, "CallStaticObjectMethodA"), 1);
}

TEST_F(PacketCaptureTest, TurnsEveryStateIntoItsConstant) {
    int state = 0;
    for (const std::string constant : {"NO_CAPTURE", "CAPTURING", "STOPPED", "FINISHED", "ALREADY_CAPTURING",
                                       "UNKNOWN_INTERFACE", "FAILED", "INVALID_ARGUMENTS"}) {
        const auto nativeState = static_cast<InterfaceState>(state++);
        EXPECT_CALL(captures, start).WillOnce(Return(nativeState));
        EXPECT_CALL(captures, info("eth0")).WillOnce(Return(CaptureInfo{"T", nativeState, {"Y", "X"}}));
        EXPECT_EQ(start(), constant);
        EXPECT_EQ(ask("_getCaptureInfo", "eth0"), "T: " + constant + ", files [Y, X]");
    }
}

TEST_F(PacketCaptureTest, LeavesTheErrorOfAnUnknownStatePending) {
    const auto isOutOfBounds = testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException: ");
    for (const int state : {8, -1}) {
        const auto nativeState = static_cast<InterfaceState>(state);
        EXPECT_CALL(captures, start).WillOnce(Return(nativeState));
        EXPECT_EQ(start(), "null");
        EXPECT_THAT(takeThrown(), isOutOfBounds);
        EXPECT_CALL(captures, info).WillOnce(Return(CaptureInfo{"T", nativeState, {}}));
        EXPECT_EQ(ask("_getCaptureInfo", "eth0"), "null");
        EXPECT_THAT(takeThrown(), isOutOfBounds);
    }
}

TEST_F(PacketCaptureTest, AsksThePlatformFirstForTheCapturedInterfaces) {
    EXPECT_CALL(captures, allInterfaces).WillOnce([&] {
        EXPECT_THAT(table.calls(), testing::IsEmpty());
        return Texts{"eth1", "eth0"};
    });
    EXPECT_EQ(ask("_getAllCapturedInterfaces"), "[eth1, eth0]");
}

TEST_F(PacketCaptureTest, PassesTheStatusOfStopAndRemoveOn) {
    for (const int status : {0, 5, -1}) {
        EXPECT_CALL(captures, stop("eth0")).WillOnce(Return(status));
        EXPECT_CALL(captures, remove("eth1")).WillOnce(Return(status));
        EXPECT_EQ(call("_stopPacketCapture", "eth0").result.i, status);
        EXPECT_EQ(call("_removeCapture", "eth1").result.i, status);
    }
}

}  // namespace
