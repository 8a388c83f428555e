// Name servers, search domains, time servers and the hosts table: lists of texts, read and replaced.
#include "mocks/hostsUtils.h"
#include "mocks/log.h"
#include "mocks/nameServers.h"
#include "mocks/timeServers.h"
#include "support/bridgeTest.h"

using testing::_;
using testing::DoAll;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::InSequence;
using testing::IsNull;
using testing::NotNull;
using testing::Pointee;
using testing::Return;
using testing::SetArgPointee;

namespace {

using Texts = std::vector<std::string>;

constexpr auto dns = "appliance/DNSUtils";
constexpr auto ntp = "appliance/NTPUtils";
constexpr auto hosts = "appliance/HostsUtils";

class ServersTest : public BridgeTest {};

TEST_F(ServersTest, ReadsEachListInItsOrder) {
    for (const auto& [list, seen] : {std::pair{Texts{}, "[]"}, {Texts{"b", "", "a", "b"}, "[b, , a, b]"}}) {
        EXPECT_CALL(mock<NameServersMock>(), getNameServers(IsNull())).WillOnce(Return(list));
        EXPECT_CALL(mock<NameServersMock>(), getSearchDomains).WillOnce(Return(list));
        EXPECT_CALL(mock<TimeServersMock>(), getTimeServers(IsNull())).WillOnce(Return(list));
        EXPECT_CALL(mock<HostsUtilsMock>(), getAddresses).WillOnce(Return(list));
        EXPECT_CALL(mock<HostsUtilsMock>(), getHostnames("10.0.0.1")).WillOnce(Return(list));
        EXPECT_EQ(call(dns, "_getNameServers").resultText, seen);
        EXPECT_EQ(call(dns, "_getSearchDomains").resultText, seen);
        EXPECT_EQ(call(ntp, "_getTimeServers").resultText, seen);
        EXPECT_EQ(call(hosts, "_getAddresses").resultText, seen);
        EXPECT_EQ(call(hosts, "_getHostnames", javaString("10.0.0.1")).resultText, seen);
    }
}

TEST_F(ServersTest, ReplacesEachListAndReportsAnyOtherStatusAsFalse) {
    for (const Texts& list : {Texts{}, Texts{"b", "", "a", "b"}}) {
        for (const auto& [status, wasSet] : {std::pair{0, "true"}, {1, "false"}, {-1, "false"}}) {
            const auto same = ElementsAreArray(list);
            EXPECT_CALL(mock<NameServersMock>(), setNameServers(same, _)).WillOnce(Return(status));
            EXPECT_CALL(mock<NameServersMock>(), setSearchDomains(same)).WillOnce(Return(status));
            EXPECT_CALL(mock<TimeServersMock>(), setTimeServers(same, IsNull())).WillOnce(Return(status));
            EXPECT_CALL(mock<HostsUtilsMock>(), setHostnames("10.0.0.1", same)).WillOnce(Return(status == 0));
            EXPECT_EQ(call(dns, "_setNameServers", javaStrings(list)).resultText, wasSet);
            EXPECT_EQ(call(dns, "_setSearchDomains", javaStrings(list)).resultText, wasSet);
            EXPECT_EQ(call(ntp, "_setTimeServers", javaStrings(list)).resultText, wasSet);
            EXPECT_EQ(call(hosts, "_setHostnames", javaString("10.0.0.1"), javaStrings(list)).resultText,
                      wasSet);
        }
    }
}

TEST_F(ServersTest, CarriesTheCompanionListOverToTheNewNameServers) {
    const InSequence inOrder;
    EXPECT_CALL(mock<NameServersMock>(), getNameServers(NotNull()))
        .WillOnce(DoAll(SetArgPointee<0>(Texts{"timeout:2", "", "timeout:2"}), Return(Texts{"10.0.0.1"})));
    EXPECT_CALL(mock<NameServersMock>(),
                setNameServers(ElementsAre("10.0.0.9"), Pointee(ElementsAre("timeout:2", "", "timeout:2"))));
    EXPECT_EQ(call(dns, "_setNameServers", javaStrings({"10.0.0.9"})).resultText, "true");
}

TEST_F(ServersTest, TracesEachAddressOnceItIsStored) {
    EXPECT_CALL(mock<HostsUtilsMock>(), getAddresses).WillOnce(Return(Texts{"10.0.0.1", "%s%n"}));
    const auto isStored = [&] { EXPECT_STREQ(table.calls().back().function, "SetObjectArrayElement"); };
    const InSequence inOrder;
    EXPECT_CALL(mock<LogMock>(), line(7, "Address in JNI is 10.0.0.1")).WillOnce(isStored);
    EXPECT_CALL(mock<LogMock>(), line(7, "Address in JNI is %s%n")).WillOnce(isStored);
    EXPECT_EQ(call(hosts, "_getAddresses").resultText, "[10.0.0.1, %s%n]");
}

TEST_F(ServersTest, DeletesHostNames) {
    for (const auto& [wasThere, seen] : {std::pair{true, "true"}, {false, "false"}}) {
        EXPECT_CALL(mock<HostsUtilsMock>(), deleteHostnames("10.0.0.1")).WillOnce(Return(wasThere));
        EXPECT_EQ(call(hosts, "_deleteHostnames", javaString("10.0.0.1")).resultText, seen);
    }
}

}  // namespace
