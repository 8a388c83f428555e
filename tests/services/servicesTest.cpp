#include "mocks/servicesUtils.h"
#include "mocks/snmpUtils.h"
#include "support/bridgeTest.h"

using testing::Return;
using testing::StrEq;

namespace {

class ServicesTest : public BridgeTest {};

TEST_F(ServicesTest, PassesTheAnswersOfTheSnmpDaemonOn) {
    // One different from the others each time, so that crossed operations show.
    for (const auto& [start, stop, restart] :
         {std::tuple{true, false, false}, {false, true, false}, {false, false, true}}) {
        EXPECT_CALL(mock<SnmpMock>(), start).WillOnce(Return(start));
        EXPECT_CALL(mock<SnmpMock>(), stop).WillOnce(Return(stop));
        EXPECT_CALL(mock<SnmpMock>(), restart).WillOnce(Return(restart));
        EXPECT_EQ(call("appliance/SNMPUtils", "_startSNMP").resultText, start ? "true" : "false");
        EXPECT_EQ(call("appliance/SNMPUtils", "_stopSNMP").resultText, stop ? "true" : "false");
        EXPECT_EQ(call("appliance/SNMPUtils", "_restartSNMP").resultText, restart ? "true" : "false");
    }
}

TEST_F(ServicesTest, PassesNamesNumbersAndStatusesUnchanged) {
    constexpr auto javaClass = "services/ServicesUtils";
    jstring name = javaString("gr\xC3\xBC\xC3\x9F");
    for (const int number : {0, 7, -1}) {
        EXPECT_CALL(mock<ServicesMock>(), startTest(StrEq("grüß"), number)).WillOnce(Return(-number));
        EXPECT_CALL(mock<ServicesMock>(), stopTest(StrEq("grüß"))).WillOnce(Return(number));
        EXPECT_CALL(mock<ServicesMock>(), performTest(StrEq("grüß"), number)).WillOnce(Return(5));
        EXPECT_EQ(call(javaClass, "_startTest", name, jint{number}).result.i, -number);
        EXPECT_EQ(call(javaClass, "_stopTest", name).result.i, number);
        call(javaClass, "_performTest", name, jint{number});
    }
}

}  // namespace
