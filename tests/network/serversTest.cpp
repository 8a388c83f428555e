#include "platform/hostsUtils.h"
#include "platform/nameServers.h"
#include "support/bridgeTest.h"

using namespace talvern;
using testing::DoAll;
using testing::InSequence;
using testing::NotNull;
using testing::Pointee;
using testing::Return;
using testing::SetArgPointee;

namespace {

using ServersTest = BridgeTest;

TEST_F(ServersTest, CarriesTheCompanionListOverToTheNewNameServers) {
    const Texts companions{"timeout:2", "", "timeout:2"};
    for (const auto& [servers, status] :
         {std::pair{Texts{}, 0}, {{"10.0.0.9", "", "10.0.0.8"}, 0}, {{"10.0.0.9"}, 1}, {{"10.0.0.9"}, -1}}) {
        const InSequence inOrder;
        EXPECT_CALL(mockOf<&nameServers::getNameServers>(), Call(NotNull()))
            .WillOnce(DoAll(SetArgPointee<0>(companions), Return(Texts{"10.0.0.1"})));
        EXPECT_CALL(mockOf<&nameServers::setNameServers>(), Call(servers, Pointee(companions)))
            .WillOnce(Return(status));
        EXPECT_EQ(call("_setNameServers", servers).result.z, status == 0);
    }
}

TEST_F(ServersTest, TracesEachAddress) {
    EXPECT_CALL(mockOf<&hostsUtils::getAddresses>(), Call).WillOnce(Return(Texts{"10.0.0.1", "%s%n"}));
    const InSequence inOrder;
    EXPECT_CALL(mockOfTrace(), Call(7, "Address in JNI is 10.0.0.1"));
    EXPECT_CALL(mockOfTrace(), Call(7, "Address in JNI is %s%n"));
    EXPECT_EQ(ask("_getAddresses"), "[10.0.0.1, %s%n]");
}

}  // namespace
