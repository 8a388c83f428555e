// Numbers of the platform that stand for constants of Java enums.
#include <climits>

#include "platform/packetCapture.h"
#include "platform/processManagerUtils.h"
#include "platform/statusUtils.h"
#include "support/bridgeTest.h"

using namespace talvern;
using packetCapture::InterfaceState;
using testing::StartsWith;

namespace {

using ConstantsTest = BridgeTest;

TEST_F(ConstantsTest, EachNumberIsItsConstantAndAnUnknownOneAnError) {
    const Texts levels{"EMERGENCY", "ALERT", "CRITICAL", "ERROR", "WARNING", "NOTICE", "INFO", "DEBUG"};
    const Texts states{"NO_CAPTURE",        "CAPTURING",         "STOPPED", "FINISHED",
                       "ALREADY_CAPTURING", "UNKNOWN_INTERFACE", "FAILED",  "INVALID_ARGUMENTS"};
    int number = 0;  // the platform's answer
    platform::answer<&processManagerUtils::getPlatformLogLevel>([&](auto& level) {
        level = processManagerUtils::PlatformLogLevel{number};
        return 0;
    });
    platform::answer<&packetCapture::sStartPacketCapture>([&](auto&&...) { return InterfaceState{number}; });
    platform::answer<&packetCapture::sGetCaptureInfo>([&](auto&&...) {
        return packetCapture::CaptureInfo{"eth0", InterfaceState{number}, {}};
    });
    platform::answer<&statusUtils::getIntrusionStatus>([&] { return number; });

    const auto expectConstants = [&](const Texts& constants, int first, const Texts& around, const char* native,
                                     const auto&... arguments) {
        SCOPED_TRACE(native);
        number = first;
        for (const std::string& constant : constants) {
            EXPECT_EQ(ask(native, arguments...), around[0] + constant + around[1]) << number;
            ++number;
        }
        for (const int unknown : {number, first - 1, INT_MIN, INT_MAX}) {
            number = unknown;
            EXPECT_EQ(ask(native, arguments...), "null") << number;
            EXPECT_THAT(takeThrown(), StartsWith("java.lang.ArrayIndexOutOfBoundsException: "));
        }
    };
    expectConstants(levels, 0, {"", ""}, "_getPlatformLogLevel");
    expectConstants(states, 0, {"", ""}, "_startPacketCapture", "eth0", "file", "", 0, 0, 0, 0);
    expectConstants(states, 0, {"eth0: ", ", files []"}, "_getCaptureInfo", "eth0");
    expectConstants({"UNKNOWN", "INTACT", "OPENED"}, -1, {"", ""}, "_getIntrusionStatus");
}

TEST_F(ConstantsTest, ALevelThatCannotBeReadIsAnUnknownException) {
    EXPECT_CALL(mockOfTrace(), Call(3, "Unknown exception caught in libtalvern JNI")).Times(2);
    for (const int status : {1, -1}) {
        platform::answer<&processManagerUtils::getPlatformLogLevel>([&](auto&) { return status; });
        EXPECT_EQ(ask("_getPlatformLogLevel"), "null");
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
    }
}

}  // namespace
