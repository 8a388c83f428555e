#include "platform/processManagerUtils.h"
#include "support/bridgeTest.h"

using namespace talvern;
using processManagerUtils::PlatformLogLevel;

namespace {

using ProcessManagerTest = BridgeTest;

TEST_F(ProcessManagerTest, ThrowsTheUnknownExceptionWhenTheLevelCannotBeRead) {
    EXPECT_CALL(mockOfTrace(), Call(3, "Unknown exception caught in libtalvern JNI")).Times(2);
    for (const int status : {1, -1}) {
        EXPECT_CALL(mockOf<&processManagerUtils::getPlatformLogLevel>(), Call)
            .WillOnce(deliver(PlatformLogLevel::error, status));
        EXPECT_EQ(ask("_getPlatformLogLevel"), "null");
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
    }
}

TEST_F(ProcessManagerTest, DoesNotAskThePlatformForALevelThatJavaCannotHold) {
    table.hideClass("com/kvo/talvern/processmanager/ProcessManagerUtils$PlatformLogLevel");
    call("_getPlatformLogLevel");
    EXPECT_EQ(platform::operationCount(), 0U);
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.NoClassDefFoundError: "));
}

}  // namespace
