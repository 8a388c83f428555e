#include <cstring>

#include "support/bridgeTest.h"

using namespace talvern;
using applianceUtils::HWInfo;
using testing::Eq;
using testing::InSequence;
using testing::Return;
using testing::SetArgReferee;
using testing::StrEq;
using namespace std::string_literals;

namespace {

using ApplianceUtilsTest = BridgeTest;

TEST_F(ApplianceUtilsTest, TracesWhyTheClockWasNotSet) {
    constexpr std::int64_t late = 0x123456789ABCDEF;
    EXPECT_CALL(mockOf<&applianceUtils::setDateTime>(), Call(late, Eq(0))).WillOnce(Return(true));
    EXPECT_EQ(ask("_setDateTime", jlong{late}), "true");
    for (const int errorNumber : {1, 9999}) {
        EXPECT_CALL(mockOf<&applianceUtils::setDateTime>(), Call(-1, Eq(0))).WillOnce(deliver<1>(errorNumber, false));
        EXPECT_CALL(mockOfTrace(), Call(7, "date/time set failed, err is "s + std::strerror(errorNumber)));
        EXPECT_EQ(ask("_setDateTime", jlong{-1}), "false");
    }
}

TEST_F(ApplianceUtilsTest, GivesTheHardwareInfoInItsOrderWithEmptyTextsAsTheyAre) {
    EXPECT_CALL(mockOf<&applianceUtils::getHardwareInfo>(), Call(testing::Field(&HWInfo::manufacturer, "")))
        .WillOnce(SetArgReferee<0>(HWInfo{"1", "2", "", "4", "5", "6", true}))
        .WillOnce(Return());
    EXPECT_EQ(ask("_getHardwareInfo"), "1 2, machine type , serial number 4, BIOS 5 of 6, virtual");
    EXPECT_EQ(ask("_getHardwareInfo"), " , machine type , serial number , BIOS  of ");
}

TEST_F(ApplianceUtilsTest, GivesComponentsInOrderAndNoneForAFailedQuery) {
    using Components = std::vector<applianceUtils::ComponentFirmware>;
    expectRead<&applianceUtils::getComponentInfo>(
        "_getComponentInfo", Components{{-1, "b"}, {2, ""}, {2147483647, "a"}}, "[-1: b, 2: , 2147483647: a]", "[]",
        "[]");
}

TEST_F(ApplianceUtilsTest, ResolvesAndConnects) {
    for (const bool isDone : {true, false}) {
        const InSequence inOrder;
        EXPECT_CALL(mockOf<&diagnosticUtils::dnsResolve>(), Call("host", StrEq("")))
            .WillOnce(deliver<1>("10.0.0.1", isDone));
        EXPECT_CALL(mockOf<&diagnosticUtils::tcpConnect>(), Call("host", -7, StrEq("")))
            .WillOnce(deliver<2>("100%s", isDone));
        EXPECT_CALL(mockOfTrace(), Call(7, "Return from tcpConnect is "s + (isDone ? "1" : "0")));
        EXPECT_CALL(mockOfTrace(), Call(7, "Err is 100%s"));
        EXPECT_EQ(ask("_dnsResolve", "host"), isDone ? "10.0.0.1" : "");
        EXPECT_EQ(ask("_tcpConnect", "host", -7), isDone ? "" : "100%s");
    }
}

TEST_F(ApplianceUtilsTest, ReportsAsManyResetErrorsAsFitAndLeavesOtherSlotsAlone) {
    jclass javaClass = env->FindClass("com/kvo/talvern/appliance/FileError");
    jobject earlier = env->AllocObject(javaClass);
    const std::vector<applianceUtils::resetFileError> errors{{"/b", -1}, {"", 2}};
    for (const auto& [slots, status, seen] :
         {std::tuple{3, 7, "[/b: error -1, : error 2, null: error 0]"}, {1, -1, "[/b: error -1]"}, {0, 5, "[]"}}) {
        jobjectArray array = env->NewObjectArray(slots, javaClass, earlier);
        EXPECT_CALL(mockOf<&applianceUtils::deviceRESET>(), Call(testing::IsEmpty())).WillOnce(deliver(errors, status));
        EXPECT_EQ(call("_deviceRESET", array).result.i, status);
        EXPECT_EQ(describe(array), seen);
    }
}

}  // namespace
