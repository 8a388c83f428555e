#include "mocks/lifecycle.h"
#include "mocks/log.h"
#include "support/bridgeTest.h"

using talvern::processManagerUtils::PlatformLogLevel;
using testing::Return;
using testing::StrEq;

namespace {

class ProcessManagerTest : public BridgeTest {
  protected:
    std::string levelOf(int level, int status = 0) {
        EXPECT_CALL(manager, getPlatformLogLevel).WillOnce(deliver(PlatformLogLevel{level}, status));
        return ask("_getPlatformLogLevel");
    }

    ProcessManagerMock& manager = mock<ProcessManagerMock>();
};

TEST_F(ProcessManagerTest, NamesTheLevelOfThePlatformsNumber) {
    int level = 0;
    for (const char* name :
         {"EMERGENCY", "ALERT", "CRITICAL", "ERROR", "WARNING", "NOTICE", "INFO", "DEBUG"}) {
        EXPECT_EQ(levelOf(level++), name);
    }
    for (const int unknown : {8, -1}) {
        EXPECT_EQ(levelOf(unknown), "null");
        EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException: "));
    }
}

TEST_F(ProcessManagerTest, ThrowsTheUnknownExceptionWhenTheLevelCannotBeRead) {
    EXPECT_CALL(mock<LogMock>(), line(3, StrEq("Unknown exception caught in libtalvern JNI"))).Times(2);
    for (const int status : {1, -1}) {
        EXPECT_EQ(levelOf(2, status), "null");
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
    }
}

TEST_F(ProcessManagerTest, DoesNotAskThePlatformForALevelThatJavaCannotHold) {
    table.hideClass("com/kvo/talvern/processmanager/ProcessManagerUtils$PlatformLogLevel");
    EXPECT_CALL(manager, getPlatformLogLevel).Times(0);
    call("_getPlatformLogLevel");
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.NoClassDefFoundError: "));
}

TEST_F(ProcessManagerTest, PassesNumbersOnBitForBit) {
    EXPECT_CALL(manager, getPlatformTraceMask).WillOnce(Return(0x80000001));
    EXPECT_EQ(call("_getPlatformTraceMask").result.i, -0x7fffffff);
    EXPECT_CALL(manager, distributeLogging(4294967295U, 5));
    call("_distributeLogging", -1, 5);
    EXPECT_CALL(manager, requestReboot).WillOnce(Return(7));
    EXPECT_CALL(manager, requestShutdown).WillOnce(Return(-1));
    EXPECT_EQ(call("_requestReboot").result.i, 7);
    EXPECT_EQ(call("_requestShutdown").result.i, -1);
}

TEST_F(ProcessManagerTest, ReportsAnyStatusButZeroAsFalse) {
    for (const int status : {0, 7, -1}) {
        EXPECT_CALL(manager, setPlatformLogLevel(PlatformLogLevel{11})).WillOnce(Return(status));
        EXPECT_CALL(manager, signalApplicationIsUnhealthy("web")).WillOnce(Return(status));
        EXPECT_CALL(manager, signalIAmReady("gui", false)).WillOnce(Return(status));
        EXPECT_EQ(call("_setPlatformLogLevel", 11).result.z, status == 0);
        EXPECT_EQ(call("_signalProcessIsUnhealthy", "web").result.z, status == 0);
        EXPECT_EQ(call("_signalProcessIsReady", "gui").result.z, status == 0);
    }
}

TEST_F(ProcessManagerTest, InitialisesLoggingUnderTheName) {
    EXPECT_CALL(mock<LogMock>(), init(StrEq("console")));
    call("_initLogging", "console");
}

}  // namespace
