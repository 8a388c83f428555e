#include <cstring>
#include <limits>

#include "mocks/applianceUtils.h"
#include "mocks/diagnosticUtils.h"
#include "mocks/log.h"
#include "support/bridgeTest.h"

using talvern::applianceUtils::HWInfo;
using testing::DoAll;
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
    template <typename... Arguments>
    Outcome call(const std::string& name, Arguments... arguments) {
        const bool isOfTimeZone = name.ends_with("TimeZone") || name == "_getTimeZones";
        return BridgeTest::call(isOfTimeZone ? "appliance/TimeZoneUtils" : "appliance/ApplianceUtils", name,
                                arguments...);
    }

    /// The JNI calls of these names since the last `restart`, in order.
    [[nodiscard]] std::vector<std::string> callsOf(const std::vector<std::string_view>& functions) const {
        std::vector<std::string> names;
        for (const JniTable::Call& one : table.calls()) {
            if (std::find(functions.begin(), functions.end(), one.function) != functions.end())
                names.emplace_back(one.function);
        }
        return names;
    }

    testing::NiceMock<ApplianceUtilsMock>& appliance = mock<ApplianceUtilsMock>();
    testing::NiceMock<DiagnosticUtilsMock>& diagnostics = mock<DiagnosticUtilsMock>();
    testing::NiceMock<LogMock>& log = mock<LogMock>();
};

TEST_F(ApplianceUtilsTest, GivesNullForAnEmptyIdentityButNotForAnEmptyLocaleOrTimeZone) {
    for (const auto& [text, identity, setting] :
         {std::tuple{""s, "null", ""}, {"x-42"s, "x-42", "x-42"}, {"\0x"s, "", ""}}) {
        EXPECT_CALL(appliance, getSerialNumber).WillOnce(Return(text));
        EXPECT_CALL(appliance, getMachineType).WillOnce(Return(text));
        EXPECT_CALL(appliance, getMTM).WillOnce(Return(text));
        EXPECT_CALL(appliance, getLocale).WillOnce(Return(text));
        EXPECT_CALL(appliance, getTimezone).WillOnce(Return(text));
        for (const char* name : {"_getSerialNumber", "_getMachineType", "_getMTM"}) {
            EXPECT_EQ(call(name).resultText, identity) << name;
        }
        for (const char* name : {"_getLocale", "_getConfiguredTimeZone"}) {
            EXPECT_EQ(call(name).resultText, setting) << name;
        }
    }
}

TEST_F(ApplianceUtilsTest, PassesAnswersOnUnchanged) {
    for (const bool answer : {true, false}) {
        EXPECT_CALL(appliance, isAppliance).WillOnce(Return(answer));
        EXPECT_CALL(appliance, areHostSSHKeysStrong).WillOnce(Return(answer));
        EXPECT_CALL(appliance, setDefaultLocale(StrEq("de_DE"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, setTimezone(StrEq("UTC"))).WillOnce(Return(answer));
        EXPECT_CALL(appliance, syncNTPServer(StrEq("ntp"))).WillOnce(Return(answer));
        EXPECT_CALL(diagnostics, pingHost("host", StrEq(""))).WillOnce(Return(answer));
        for (const Outcome& outcome :
             {call("_isAppliance"), call("_areHostSSHKeysStrong"),
              call("_setDefaultLocale", javaString("de_DE")),
              call("_setConfiguredTimeZone", javaString("UTC")), call("_syncNTPServer", javaString("ntp")),
              call("_pingHost", javaString("host"))}) {
            EXPECT_EQ(outcome.resultText, answer ? "true" : "false");
        }
    }
    for (const std::int32_t number : {std::numeric_limits<std::int32_t>::min(), 0, 5}) {
        EXPECT_CALL(appliance, getCPUCount).WillOnce(Return(number));
        EXPECT_CALL(appliance, resetHostSSHKeys).WillOnce(Return(number));
        EXPECT_EQ(call("_getCPUCount").result.i, number);
        EXPECT_EQ(call("_resetHostSSHKeys").result.i, number);
    }
}

TEST_F(ApplianceUtilsTest, PassesBothTextsOfALocaleOrANullForTheSecond) {
    EXPECT_CALL(appliance, setLocale(StrEq("de_DE"), StrEq("euro"))).WillOnce(Return(true));
    EXPECT_CALL(appliance, setLocale(StrEq("en_US"), IsNull())).WillOnce(Return(false));
    EXPECT_EQ(call("_setLocale", javaString("de_DE"), javaString("euro")).resultText, "true");
    EXPECT_EQ(call("_setLocale", javaString("en_US"), jstring{}).resultText, "false");
}

TEST_F(ApplianceUtilsTest, KeepsTheOrderOfTextListsAlsoOfEmptyOnes) {
    for (const auto& [texts, seen] :
         {std::pair{std::vector<std::string>{}, "[]"}, {{"b", "", "a"}, "[b, , a]"}}) {
        EXPECT_CALL(appliance, getDateTime).WillOnce(Return(texts));
        EXPECT_CALL(appliance, getTimezones).WillOnce(Return(texts));
        EXPECT_EQ(call("_getDateTime").resultText, seen);
        EXPECT_EQ(call("_getTimeZones").resultText, seen);
    }
}

TEST_F(ApplianceUtilsTest, TracesWhyTheClockWasNotSet) {
    constexpr std::int64_t late = 0x123456789ABCDEF;
    EXPECT_CALL(appliance, setDateTime(late, Eq(0))).WillOnce(Return(true));
    EXPECT_EQ(call("_setDateTime", jlong{late}).resultText, "true");
    for (const int errorNumber : {0, 1, 9999}) {
        EXPECT_CALL(appliance, setDateTime(-1, Eq(0)))
            .WillOnce(DoAll(SetArgReferee<1>(errorNumber), Return(false)));
        EXPECT_CALL(log, line(7, "date/time set failed, err is "s + std::strerror(errorNumber)));
        EXPECT_EQ(call("_setDateTime", jlong{-1}).resultText, "false");
    }
}

TEST_F(ApplianceUtilsTest, GivesTheHardwareInfoInItsOrderWithEmptyTextsAsTheyAre) {
    EXPECT_CALL(appliance, getHardwareInfo(testing::Field(&HWInfo::manufacturer, "")))
        .WillOnce(SetArgReferee<0>(HWInfo{"1", "2", "", "4", "5", "6", true}))
        .WillOnce(Return());
    EXPECT_EQ(call("_getHardwareInfo").resultText,
              "1 2, machine type , serial number 4, BIOS 5 of 6, virtual");
    EXPECT_EQ(call("_getHardwareInfo").resultText, " , machine type , serial number , BIOS  of ");
}

TEST_F(ApplianceUtilsTest, GivesComponentsInOrderAndNoneForAFailedQuery) {
    using Components = ApplianceUtilsMock::Components;
    const Components three{{-1, "b"}, {2, ""}, {2147483647, "a"}};
    for (const auto& [wasRead, components, seen] : {std::tuple{true, Components{}, "[]"},
                                                    {false, three, "[]"},
                                                    {true, three, "[-1: b, 2: , 2147483647: a]"}}) {
        EXPECT_CALL(appliance, getComponentInfo)
            .WillOnce(DoAll(SetArgReferee<0>(components), Return(wasRead)));
        const Outcome outcome = call("_getComponentInfo");
        EXPECT_EQ(outcome.resultText, seen);
        EXPECT_TRUE(env->IsInstanceOf(outcome.result.l,
                                      env->FindClass("[Lcom/kvo/talvern/appliance/ComponentFirmware;")));
    }
}

TEST_F(ApplianceUtilsTest, GivesTheResolvedNameOnSuccessOnly) {
    for (const auto& [isResolved, seen] : {std::pair{true, "10.0.0.1"}, {false, ""}}) {
        EXPECT_CALL(diagnostics, dnsResolve("host", StrEq("")))
            .WillOnce(DoAll(SetArgReferee<1>("10.0.0.1"), Return(isResolved)));
        EXPECT_EQ(call("_dnsResolve", javaString("host")).resultText, seen);
    }
}

TEST_F(ApplianceUtilsTest, GivesTheConnectionErrorOnFailureOnlyAndTracesBoth) {
    const InSequence inOrder;
    for (const auto& [isConnected, seen] : {std::pair{true, ""}, {false, "100%s"}}) {
        EXPECT_CALL(diagnostics, tcpConnect("host", -7, StrEq("")))
            .WillOnce(DoAll(SetArgReferee<2>("100%s"), Return(isConnected)));
        EXPECT_CALL(log,
                    line(7, isConnected ? "Return from tcpConnect is 1" : "Return from tcpConnect is 0"));
        EXPECT_CALL(log, line(7, "Err is 100%s"));
        EXPECT_EQ(call("_tcpConnect", javaString("host"), jint{-7}).resultText, seen);
    }
}

TEST_F(ApplianceUtilsTest, GivesTheHostNameBackBeforeItMakesTheResult) {
    const auto expectReleaseFirst = [&] {
        EXPECT_THAT(callsOf({"ReleaseStringUTFChars", "ThrowNew", "NewStringUTF"}),
                    testing::ElementsAre("ReleaseStringUTFChars", "NewStringUTF"));
        table.restart();
    };
    call("_dnsResolve", javaString("host"));
    expectReleaseFirst();
    call("_tcpConnect", javaString("host"), jint{1});
    expectReleaseFirst();
}

TEST_F(ApplianceUtilsTest, MakesTheFixedTextsAfterTheJavaException) {
    EXPECT_CALL(diagnostics, tcpConnect).WillOnce(Throw(std::runtime_error{"no route"}));
    EXPECT_EQ(call("_tcpConnect", javaString("host"), jint{1}).resultText, "JNI error");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: no route");
    EXPECT_THAT(callsOf({"ReleaseStringUTFChars", "ThrowNew", "NewStringUTF"}),
                testing::ElementsAre("ReleaseStringUTFChars", "ThrowNew", "NewStringUTF"));
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
        EXPECT_CALL(appliance, deviceRESET(testing::IsEmpty()))
            .WillOnce(DoAll(SetArgReferee<0>(met), Return(status)));
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
    EXPECT_CALL(appliance, triggerException(StrEq("quietly"))).WillOnce(Return());
    EXPECT_CALL(appliance, triggerException(StrEq("loudly"))).WillOnce(Throw(std::runtime_error{"as asked"}));
    call("_triggerException", javaString("quietly"));
    EXPECT_EQ(takeThrown(), "");
    call("_triggerException", javaString("loudly"));
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: as asked");
}

}  // namespace
