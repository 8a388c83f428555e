#include <algorithm>

#include "mocks/packetCapture.h"
#include "support/bridgeTest.h"

using testing::_;
using testing::IsEmpty;
using testing::Return;
using namespace talvern::packetCapture;

namespace {

constexpr auto javaClass = "appliance/PacketCapture";

class PacketCaptureTest : public BridgeTest {
  protected:
    Outcome start(jint snapLength, jint maxBytes, jint maxSeconds, jint maxPackets) {
        return call(javaClass, "_startPacketCapture", javaString("interface"), javaString("file"),
                    javaString("filter"), snapLength, maxBytes, maxSeconds, maxPackets);
    }

    PacketCaptureMock& captures = mock<PacketCaptureMock>();
};

TEST_F(PacketCaptureTest, MapsTheArgumentsOfAStart) {
    constexpr auto max = std::numeric_limits<jint>::max();
    EXPECT_CALL(captures, start("interface", "file", "filter", 1, 2, 3, 4, false));
    EXPECT_CALL(captures, start(_, _, _, 4294967295U, 0, 0, 0, false));
    EXPECT_CALL(captures, start(_, _, _, 0x80000000U, max, max, max, false));
    start(1, 2, 3, 4);
    start(-1, 0, 0, 0);
    start(std::numeric_limits<jint>::min(), max, max, max);
}

TEST_F(PacketCaptureTest, RejectsNegativeLimitsWithoutAskingThePlatform) {
    EXPECT_CALL(captures, start).Times(0);
    for (const auto& [maxBytes, maxSeconds, maxPackets] :
         {std::tuple{-1, 0, 0}, {0, -1, 0}, {0, 0, std::numeric_limits<jint>::min()}}) {
        EXPECT_EQ(start(0, maxBytes, maxSeconds, maxPackets).resultText, "INVALID_ARGUMENTS");
    }
}

TEST_F(PacketCaptureTest, AsksForTheConstantsOnceAndBeforeAnyString) {
    const auto count = [&](const char* function) {
        return std::count_if(table.calls().begin(), table.calls().end(), [&](const JniTable::Call& call) {
            return std::string_view{call.function} == function;
        });
    };
    table.restart();
    table.failCall(2);  // the call of "values", after its two lookups
    EXPECT_EQ(start(0, 0, 0, 0).resultText, "null");
    EXPECT_EQ(takeThrown(), "java.lang.OutOfMemoryError: planted");
    EXPECT_EQ(count("CallStaticObjectMethodA"), 1);
    EXPECT_EQ(count("GetStringUTFChars"), 0);

    table.restart();
    start(0, 0, 0, 0);
    EXPECT_EQ(count("CallStaticObjectMethodA"), 1);
}

TEST_F(PacketCaptureTest, TurnsEveryStateIntoItsConstant) {
    int state = 0;
    for (const char* constant : {"NO_CAPTURE", "CAPTURING", "STOPPED", "FINISHED", "ALREADY_CAPTURING",
                                 "UNKNOWN_INTERFACE", "FAILED", "INVALID_ARGUMENTS"}) {
        const auto nativeState = static_cast<InterfaceState>(state++);
        EXPECT_CALL(captures, start).WillOnce(Return(nativeState));
        EXPECT_CALL(captures, info("eth0")).WillOnce(Return(CaptureInfo{"T", nativeState, {}}));
        EXPECT_EQ(start(0, 0, 0, 0).resultText, constant);
        EXPECT_EQ(call(javaClass, "_getCaptureInfo", javaString("eth0")).resultText,
                  std::string{"T: "} + constant + ", files []");
    }
}

TEST_F(PacketCaptureTest, LeavesTheErrorOfAnUnknownStatePending) {
    for (const int state : {8, -1}) {
        const auto nativeState = static_cast<InterfaceState>(state);
        const std::string error = "java.lang.ArrayIndexOutOfBoundsException: ";
        EXPECT_CALL(captures, start).WillOnce(Return(nativeState));
        EXPECT_EQ(start(0, 0, 0, 0).resultText, "null");
        EXPECT_THAT(takeThrown(), testing::StartsWith(error));
        for (const std::vector<std::string>& files : {std::vector<std::string>{}, {"a"}}) {
            EXPECT_CALL(captures, info).WillOnce(Return(CaptureInfo{"T", nativeState, files}));
            EXPECT_EQ(call(javaClass, "_getCaptureInfo", javaString("eth0")).resultText, "null");
            EXPECT_THAT(takeThrown(), testing::StartsWith(error));
        }
    }
}

TEST_F(PacketCaptureTest, ListsFilesAndInterfacesInOrder) {
    EXPECT_CALL(captures, info).WillOnce(Return(CaptureInfo{"eth0", stopped, {"Y", "X"}}));
    EXPECT_EQ(call(javaClass, "_getCaptureInfo", javaString("eth0")).resultText,
              "eth0: STOPPED, files [Y, X]");
    for (const auto& [names, seen] :
         {std::pair{std::vector<std::string>{}, "[]"}, {{"eth1", "eth0"}, "[eth1, eth0]"}}) {
        table.restart();
        EXPECT_CALL(captures, allInterfaces).WillOnce([&, list = names] {
            EXPECT_THAT(table.calls(), IsEmpty()) << "the platform is asked first";
            return list;
        });
        EXPECT_EQ(call(javaClass, "_getAllCapturedInterfaces").resultText, seen);
    }
}

TEST_F(PacketCaptureTest, PassesTheStatusOfStopAndRemoveOn) {
    for (const int status : {0, 5, -1}) {
        EXPECT_CALL(captures, stop("eth0")).WillOnce(Return(status));
        EXPECT_CALL(captures, remove("eth1")).WillOnce(Return(status));
        EXPECT_EQ(call(javaClass, "_stopPacketCapture", javaString("eth0")).result.i, status);
        EXPECT_EQ(call(javaClass, "_removeCapture", javaString("eth1")).result.i, status);
    }
}

}  // namespace
