#include "mocks/services.h"
#include "support/bridgeTest.h"

using testing::Return;
using testing::StrEq;

namespace {

class ServicesTest : public BridgeTest {};

TEST_F(ServicesTest, PassesTheAnswersOfTheSnmpDaemonOn) {
    const testing::InSequence inOrder;
    for (const bool answer : {true, false}) {
        EXPECT_CALL(mock<SnmpMock>(), start).WillOnce(Return(answer));
        EXPECT_CALL(mock<SnmpMock>(), stop).WillOnce(Return(answer));
        EXPECT_CALL(mock<SnmpMock>(), restart).WillOnce(Return(answer));
        for (const char* native : {"_startSNMP", "_stopSNMP", "_restartSNMP"}) {
            EXPECT_EQ(call(native).result.z, answer);
        }
    }
}

TEST_F(ServicesTest, PassesNamesNumbersAndStatusesUnchanged) {
    for (const int number : {0, 7, -1}) {
        EXPECT_CALL(mock<ServicesMock>(), startTest(StrEq("grüß"), number)).WillOnce(Return(-number));
        EXPECT_CALL(mock<ServicesMock>(), stopTest(StrEq("grüß"))).WillOnce(Return(number));
        EXPECT_CALL(mock<ServicesMock>(), performTest(StrEq("grüß"), number));
        EXPECT_EQ(call("_startTest", "grüß", number).result.i, -number);
        EXPECT_EQ(call("_stopTest", "grüß").result.i, number);
        call("_performTest", "grüß", number);
    }
}

}  // namespace
