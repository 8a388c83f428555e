#include "mocks/log.h"
#include "mocks/processManagerUtils.h"
#include "support/bridgeTest.h"

using talvern::processManagerUtils::PlatformLogLevel;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;
using testing::StrEq;

namespace {

constexpr auto javaClass = "processmanager/ProcessManagerUtils";

class ProcessManagerTest : public BridgeTest {
  protected:
    Outcome levelOf(int level, int status) {
        EXPECT_CALL(mock<ProcessManagerMock>(), getPlatformLogLevel)
            .WillOnce(DoAll(SetArgReferee<0>(PlatformLogLevel{level}), Return(status)));
        return call(javaClass, "_getPlatformLogLevel");
    }
};

TEST_F(ProcessManagerTest, NamesTheLevelOfThePlatformsNumber) {
    const char* const names[] = {"EMERGENCY", "ALERT",  "CRITICAL", "ERROR",
                                 "WARNING",   "NOTICE", "INFO",     "DEBUG"};
    for (int level = 0; level < 8; ++level) EXPECT_EQ(levelOf(level, 0).resultText, names[level]);
    for (const int level : {8, -1}) {
        EXPECT_EQ(levelOf(level, 0).resultText, "null");
        EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException: "));
    }
}

TEST_F(ProcessManagerTest, ThrowsTheUnknownExceptionWhenTheLevelCannotBeRead) {
    EXPECT_CALL(mock<LogMock>(), line(3, StrEq("Unknown exception caught in libtalvern JNI"))).Times(2);
    for (const int status : {1, -1}) {
        EXPECT_EQ(levelOf(2, status).resultText, "null");
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
    }
}

TEST_F(ProcessManagerTest, DoesNotAskThePlatformForALevelThatJavaCannotHold) {
    table.hideClass("com/kvo/talvern/processmanager/ProcessManagerUtils$PlatformLogLevel");
    EXPECT_CALL(mock<ProcessManagerMock>(), getPlatformLogLevel).Times(0);
    call(javaClass, "_getPlatformLogLevel");
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.NoClassDefFoundError: "));
}

TEST_F(ProcessManagerTest, PassesNumbersOnBitForBit) {
    EXPECT_CALL(mock<ProcessManagerMock>(), getPlatformTraceMask).WillOnce(Return(0x80000001));
    EXPECT_EQ(call(javaClass, "_getPlatformTraceMask").result.i, -0x7fffffff);

    EXPECT_CALL(mock<ProcessManagerMock>(), distributeLogging(4294967295U, 5));
    call(javaClass, "_distributeLogging", jint{-1}, jint{5});

    for (const int answer : {0, 4, 7, -1}) {
        EXPECT_CALL(mock<ProcessManagerMock>(), requestReboot).WillOnce(Return(answer));
        EXPECT_CALL(mock<ProcessManagerMock>(), requestShutdown).WillOnce(Return(-answer));
        EXPECT_EQ(call(javaClass, "_requestReboot").result.i, answer);
        EXPECT_EQ(call(javaClass, "_requestShutdown").result.i, -answer);
    }
}

TEST_F(ProcessManagerTest, ReportsAnyStatusButZeroAsFalse) {
    for (const auto& [status, answer] : {std::pair{0, "true"}, {7, "false"}, {-1, "false"}}) {
        EXPECT_CALL(mock<ProcessManagerMock>(), setPlatformLogLevel(PlatformLogLevel{11}))
            .WillOnce(Return(status));
        EXPECT_CALL(mock<ProcessManagerMock>(), signalApplicationIsUnhealthy("web")).WillOnce(Return(status));
        EXPECT_CALL(mock<ProcessManagerMock>(), signalIAmReady("gui", false)).WillOnce(Return(status));
        EXPECT_EQ(call(javaClass, "_setPlatformLogLevel", jint{11}).resultText, answer);
        EXPECT_EQ(call(javaClass, "_signalProcessIsUnhealthy", javaString("web")).resultText, answer);
        EXPECT_EQ(call(javaClass, "_signalProcessIsReady", javaString("gui")).resultText, answer);
    }
}

TEST_F(ProcessManagerTest, InitialisesLoggingUnderTheName) {
    EXPECT_CALL(mock<LogMock>(), init(StrEq("console")));
    call("core/TalvernCore", "_initLogging", javaString("console"));
}

}  // namespace
