// Name servers, search domains, time servers and the hosts table: lists of texts, read and replaced.
#include "mocks/log.h"
#include "mocks/network.h"
#include "support/bridgeTest.h"

using testing::_;
using testing::DoAll;
using testing::ElementsAre;
using testing::InSequence;
using testing::IsNull;
using testing::NotNull;
using testing::Pointee;
using testing::Return;
using testing::SetArgPointee;

namespace {

class ServersTest : public BridgeTest {
  protected:
    NameServersMock& dns = mock<NameServersMock>();
    TimeServersMock& ntp = mock<TimeServersMock>();
    HostsUtilsMock& hosts = mock<HostsUtilsMock>();
};

TEST_F(ServersTest, ReadsEachListInItsOrder) {
    EXPECT_CALL(dns, getNameServers(IsNull())).WillOnce(Return(Texts{"b", "", "a", "b"}));
    EXPECT_CALL(dns, getSearchDomains).WillOnce(Return(Texts{}));
    EXPECT_CALL(ntp, getTimeServers(IsNull())).WillOnce(Return(Texts{"d", "c"}));
    EXPECT_CALL(hosts, getHostnames("10.0.0.1")).WillOnce(Return(Texts{"f", "e"}));
    EXPECT_EQ(ask("_getNameServers"), "[b, , a, b]");
    EXPECT_EQ(ask("_getSearchDomains"), "[]");
    EXPECT_EQ(ask("_getTimeServers"), "[d, c]");
    EXPECT_EQ(ask("_getHostnames", "10.0.0.1"), "[f, e]");
}

TEST_F(ServersTest, ReplacesEachListAndReportsAnyOtherStatusAsFalse) {
    for (const Texts& list : {Texts{}, Texts{"b", "", "a", "b"}}) {
        for (const int status : {0, 1, -1}) {
            EXPECT_CALL(dns, setNameServers(list, _)).WillOnce(Return(status));
            EXPECT_CALL(dns, setSearchDomains(list)).WillOnce(Return(status));
            EXPECT_CALL(ntp, setTimeServers(list, IsNull())).WillOnce(Return(status));
            EXPECT_CALL(hosts, setHostnames("10.0.0.1", list)).WillOnce(Return(status == 0));
            EXPECT_CALL(hosts, deleteHostnames("10.0.0.2")).WillOnce(Return(status == 0));
            for (const char* native : {"_setNameServers", "_setSearchDomains", "_setTimeServers"}) {
                EXPECT_EQ(call(native, list).result.z, status == 0) << native;
            }
            EXPECT_EQ(call("_setHostnames", "10.0.0.1", list).result.z, status == 0);
            EXPECT_EQ(call("_deleteHostnames", "10.0.0.2").result.z, status == 0);
        }
    }
}

TEST_F(ServersTest, CarriesTheCompanionListOverToTheNewNameServers) {
    const InSequence inOrder;
    EXPECT_CALL(dns, getNameServers(NotNull()))
        .WillOnce(DoAll(SetArgPointee<0>(Texts{"timeout:2", "", "timeout:2"}), Return(Texts{"10.0.0.1"})));
    EXPECT_CALL(dns,
                setNameServers(ElementsAre("10.0.0.9"), Pointee(ElementsAre("timeout:2", "", "timeout:2"))));
    EXPECT_EQ(ask("_setNameServers", Texts{"10.0.0.9"}), "true");
}

TEST_F(ServersTest, TracesEachAddressOnceItIsStored) {
    EXPECT_CALL(hosts, getAddresses).WillOnce(Return(Texts{"10.0.0.1", "%s%n"}));
    const auto isStored = [&] { EXPECT_STREQ(table.calls().back().function, "SetObjectArrayElement"); };
    const InSequence inOrder;
    EXPECT_CALL(mock<LogMock>(), line(7, "Address in JNI is 10.0.0.1")).WillOnce(isStored);
    EXPECT_CALL(mock<LogMock>(), line(7, "Address in JNI is %s%n")).WillOnce(isStored);
    EXPECT_EQ(ask("_getAddresses"), "[10.0.0.1, %s%n]");
}

}  // namespace
