#include <climits>
#include <cstring>

#include "mocks/appliance.h"
#include "mocks/log.h"
#include "support/bridgeTest.h"

using talvern::applianceUtils::HWInfo;
using testing::ElementsAre;
using testing::Eq;
using testing::InSequence;
using testing::IsNull;
using testing::Return;
using testing::SetArgReferee;
using testing::StrEq;
using testing::Throw;
using namespace std::string_literals;

namespace {

class ApplianceUtilsTest : public BridgeTest {
  protected:
    ApplianceUtilsMock& appliance = mock<ApplianceUtilsMock>();
    DiagnosticUtilsMock& diagnostics = mock<DiagnosticUtilsMock>();
    LogMock& log = mock<LogMock>();
};

TEST_F(ApplianceUtilsTest, GivesNullForAnEmptyIdentityButNotForAnEmptyLocaleOrTimeZone) {
    const InSequence inOrder;
    for (const auto& [text, identity, setting] :
         {std::tuple{""s, "null", ""}, {"x-42"s, "x-42", "x-42"}, {"\0x"s, "", ""}}) {
        EXPECT_CALL(appliance, getSerialNumber).WillOnce(Return(text));
        EXPECT_CALL(appliance, getMachineType).WillOnce(Return(text));
        EXPECT_CALL(appliance, getMTM).WillOnce(Return(text));
        EXPECT_CALL(appliance, getLocale).WillOnce(Return(text));
        EXPECT_CALL(appliance, getTimezone).WillOnce(Return(text));
        for (const char* native : {"_getSerialNumber", "_getMachineType", "_getMTM"}) {
            EXPECT_EQ(ask(native), identity) << native;
        }
        EXPECT_EQ(ask("_getLocale"), setting);
        EXPECT_EQ(ask("_getConfiguredTimeZone"), setting);
    }
}

TEST_F(ApplianceUtilsTest, PassesAnswersOnUnchanged) {
    for (const bool answer : {true, false}) {
        EXPECT_CALL(appliance, isAppliance).WillOnce(Return(answer));
        EXPECT_CALL(appliance, areHostSSHKeysStrong).WillOnce(Return(!answer));
        EXPECT_CALL(appliance, setDefaultLocale(StrEq("de_DE"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, setTimezone(StrEq("UTC"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, syncNTPServer(StrEq("ntp"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, setLocale(StrEq("de_DE"), StrEq("euro"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, setLocale(StrEq("en_US"), IsNull())).WillOnce(Return(answer));
        EXPECT_CALL(diagnostics, pingHost("host", StrEq(""))).WillOnce(Return(answer));
        EXPECT_EQ(call("_isAppliance").result.z, answer);
        EXPECT_EQ(call("_areHostSSHKeysStrong").result.z, !answer);
        EXPECT_EQ(call("_setDefaultLocale", "de_DE").result.z, answer);
        EXPECT_EQ(call("_setConfiguredTimeZone", "UTC").result.z, answer);
        EXPECT_EQ(call("_syncNTPServer", "ntp").result.z, answer);
        EXPECT_EQ(call("_setLocale", "de_DE", "euro").result.z, answer);
        EXPECT_EQ(call("_setLocale", "en_US", jstring{}).result.z, answer);
        EXPECT_EQ(call("_pingHost", "host").result.z, answer);
    }
    EXPECT_CALL(appliance, getCPUCount).WillOnce(Return(INT_MIN));
    EXPECT_CALL(appliance, resetHostSSHKeys).WillOnce(Return(5));
    EXPECT_EQ(call("_getCPUCount").result.i, INT_MIN);
    EXPECT_EQ(call("_resetHostSSHKeys").result.i, 5);
}

TEST_F(ApplianceUtilsTest, KeepsTheOrderOfTextLists) {
    EXPECT_CALL(appliance, getDateTime).WillOnce(Return(Texts{"b", "", "a"}));
    EXPECT_CALL(appliance, getTimezones).WillOnce(Return(Texts{"d", "c"}));
    EXPECT_EQ(ask("_getDateTime"), "[b, , a]");
    EXPECT_EQ(ask("_getTimeZones"), "[d, c]");
}

TEST_F(ApplianceUtilsTest, TracesWhyTheClockWasNotSet) {
    constexpr std::int64_t late = 0x123456789ABCDEF;
    EXPECT_CALL(appliance, setDateTime(late, Eq(0))).WillOnce(Return(true));
    EXPECT_EQ(ask("_setDateTime", jlong{late}), "true");
    for (const int errorNumber : {0, 1, 9999}) {
        EXPECT_CALL(appliance, setDateTime(-1, Eq(0))).WillOnce(deliver<1>(errorNumber, false));
        EXPECT_CALL(log, line(7, "date/time set failed, err is "s + std::strerror(errorNumber)));
        EXPECT_EQ(ask("_setDateTime", jlong{-1}), "false");
    }
}

TEST_F(ApplianceUtilsTest, GivesTheHardwareInfoInItsOrderWithEmptyTextsAsTheyAre) {
    EXPECT_CALL(appliance, getHardwareInfo(testing::Field(&HWInfo::manufacturer, "")))
        .WillOnce(SetArgReferee<0>(HWInfo{"1", "2", "", "4", "5", "6", true}))
        .WillOnce(Return());
    EXPECT_EQ(ask("_getHardwareInfo"), "1 2, machine type , serial number 4, BIOS 5 of 6, virtual");
    EXPECT_EQ(ask("_getHardwareInfo"), " , machine type , serial number , BIOS  of ");
}

TEST_F(ApplianceUtilsTest, GivesComponentsInOrderAndNoneForAFailedQuery) {
    using Components = ApplianceUtilsMock::Components;
    const Components three{{-1, "b"}, {2, ""}, {2147483647, "a"}};
    for (const auto& [wasRead, components, seen] : {std::tuple{true, Components{}, "[]"},
                                                    {false, three, "[]"},
                                                    {true, three, "[-1: b, 2: , 2147483647: a]"}}) {
        EXPECT_CALL(appliance, getComponentInfo).WillOnce(deliver(components, wasRead));
        const Outcome outcome = call("_getComponentInfo");
        EXPECT_EQ(outcome.resultText, seen);
        EXPECT_TRUE(env->IsInstanceOf(outcome.result.l,
                                      env->FindClass("[Lcom/kvo/talvern/appliance/ComponentFirmware;")));
    }
}

TEST_F(ApplianceUtilsTest, ResolvesAndConnectsAfterTheHostNameIsGivenBack) {
    const InSequence inOrder;
    for (const bool isDone : {true, false}) {
        EXPECT_CALL(diagnostics, dnsResolve("host", StrEq(""))).WillOnce(deliver<1>("10.0.0.1", isDone));
        EXPECT_CALL(diagnostics, tcpConnect("host", -7, StrEq(""))).WillOnce(deliver<2>("100%s", isDone));
        EXPECT_CALL(log, line(7, "Return from tcpConnect is "s + (isDone ? "1" : "0")));
        EXPECT_CALL(log, line(7, "Err is 100%s"));
        table.restart();
        EXPECT_EQ(ask("_dnsResolve", "host"), isDone ? "10.0.0.1" : "");
        EXPECT_EQ(ask("_tcpConnect", "host", -7), isDone ? "" : "100%s");
        const auto release = "ReleaseStringUTFChars", make = "NewStringUTF";
        EXPECT_THAT(callsOf({release, make}), ElementsAre(release, make, release, make));
    }
}

TEST_F(ApplianceUtilsTest, MakesTheFixedTextsAfterTheJavaException) {
    EXPECT_CALL(diagnostics, tcpConnect).WillOnce(Throw(std::runtime_error{"no route"}));
    EXPECT_EQ(ask("_tcpConnect", "host", 1), "JNI error");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: no route");
    EXPECT_THAT(callsOf({"ReleaseStringUTFChars", "ThrowNew", "NewStringUTF"}),
                ElementsAre("ReleaseStringUTFChars", "ThrowNew", "NewStringUTF"));
}

TEST_F(ApplianceUtilsTest, KnowsThreeStatesOfTheNetwork) {
    for (const auto& [state, seen] : {std::pair{0, 3}, {1, 1}, {2, 2}, {3, 3}, {4, 3}, {-1, 3}}) {
        EXPECT_CALL(diagnostics, networkReady).WillOnce(Return(state));
        EXPECT_EQ(call("_networkReady").result.i, seen) << state;
    }
}

TEST_F(ApplianceUtilsTest, ReportsAsManyResetErrorsAsFitAndLeavesOtherSlotsAlone) {
    using FileErrors = ApplianceUtilsMock::FileErrors;
    jclass javaClass = env->FindClass("com/kvo/talvern/appliance/FileError");
    jobject earlier = env->AllocObject(javaClass);
    const FileErrors errors{{"/b", -1}, {"", 2}};
    for (const auto& [slots, met, status, seen] :
         {std::tuple{3, FileErrors{}, 0, "[null: error 0, null: error 0, null: error 0]"},
          {3, errors, 7, "[/b: error -1, : error 2, null: error 0]"},
          {2, errors, 0, "[/b: error -1, : error 2]"},
          {1, errors, -1, "[/b: error -1]"},
          {0, errors, 5, "[]"}}) {
        jobjectArray array = env->NewObjectArray(slots, javaClass, earlier);
        EXPECT_CALL(appliance, deviceRESET(testing::IsEmpty())).WillOnce(deliver(met, status));
        EXPECT_EQ(call("_deviceRESET", array).result.i, status);
        EXPECT_EQ(describe(array), seen);
    }
}

TEST_F(ApplianceUtilsTest, ResetsNothingIfTheErrorsCouldNotBeReported) {
    EXPECT_CALL(appliance, deviceRESET).Times(0);
    table.hideClass("com/kvo/talvern/appliance/FileError");
    jobjectArray array = env->NewObjectArray(1, env->FindClass("java/lang/Object"), nullptr);
    EXPECT_EQ(call("_deviceRESET", array).result.i, 3);
    EXPECT_EQ(takeThrown(), "java.lang.NoClassDefFoundError: com/kvo/talvern/appliance/FileError");
}

TEST_F(ApplianceUtilsTest, TellsThePlatformHowToFail) {
    EXPECT_CALL(appliance, triggerException(StrEq("loudly"))).WillOnce(Throw(std::runtime_error{"as asked"}));
    call("_triggerException", "loudly");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: as asked");
}

}  // namespace
