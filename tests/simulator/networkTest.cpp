#include <gmock/gmock.h>
#include <memory>
#include <thread>

#include "platform/ethernetInterfaces.h"
#include "platform/hostsUtils.h"
#include "platform/nameServers.h"
#include "platform/timeServers.h"

using namespace talvern;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;

namespace {

using Texts = std::vector<std::string>;

TEST(NameServers, KeepWhatIsSetAndRefuseMalformedEntriesAsAWhole) {
    Texts companions;
    nameServers::getNameServers(&companions);
    EXPECT_THAT(companions, Not(IsEmpty()));
    EXPECT_EQ(nameServers::setNameServers({"10.0.0.1", "2001:db8::1"}, &companions), 0);
    EXPECT_NE(nameServers::setNameServers({"10.0.0.2", "10.0.0.256"}, nullptr), 0);
    Texts kept;
    EXPECT_THAT(nameServers::getNameServers(&kept), ElementsAre("10.0.0.1", "2001:db8::1"));
    EXPECT_EQ(kept, companions);
    EXPECT_EQ(nameServers::setNameServers({}, nullptr), 0);
    EXPECT_THAT(nameServers::getNameServers(&kept), IsEmpty());
    EXPECT_THAT(kept, IsEmpty());

    EXPECT_EQ(nameServers::setSearchDomains({"b.example", "a.example"}), 0);
    EXPECT_NE(nameServers::setSearchDomains({"two words"}), 0);
    EXPECT_THAT(nameServers::getSearchDomains(), ElementsAre("b.example", "a.example"));
}

TEST(TimeServers, KeepWhatIsSetAndNameMalformedEntries) {
    Texts malformed;
    EXPECT_EQ(timeServers::setTimeServers({"ntp.example", "10.0.0.1", "2001:db8::1"}, &malformed), 0);
    EXPECT_NE(timeServers::setTimeServers({"ntp.example", "not a name"}, &malformed), 0);
    EXPECT_THAT(malformed, ElementsAre("not a name"));
    EXPECT_THAT(timeServers::getTimeServers(nullptr), ElementsAre("ntp.example", "10.0.0.1", "2001:db8::1"));
}

TEST(HostsTable, KeepsNamesByAddress) {
    EXPECT_TRUE(hostsUtils::setHostnames("10.0.0.77", {"b", "a", "b"}));
    EXPECT_THAT(hostsUtils::getHostnames("10.0.0.77"), ElementsAre("b", "a", "b"));
    EXPECT_FALSE(hostsUtils::setHostnames("10.0.0", {"a"}));
    EXPECT_FALSE(hostsUtils::setHostnames("10.0.0.77", {"a", ""}));
    EXPECT_THAT(hostsUtils::getAddresses(), Contains("10.0.0.77"));
    EXPECT_TRUE(hostsUtils::setHostnames("10.0.0.77", {}));
    EXPECT_THAT(hostsUtils::getAddresses(), Not(Contains("10.0.0.77")));
    EXPECT_THAT(hostsUtils::getHostnames("10.0.0.77"), IsEmpty());
    EXPECT_FALSE(hostsUtils::deleteHostnames("10.0.0.77"));
}

namespace ethernet = ethernetInterfaces;

TEST(EthernetInterfaces, AreListedByEachOperation) {
    const std::unique_ptr<Texts> names{ethernet::getInterfaceNames()};
    EXPECT_THAT(*names, ElementsAre("agg0", "eth0", "eth1", "eth2", "lo", "vlan100"));
    std::vector<types::KeyValPair*> all;
    EXPECT_TRUE(ethernet::getInterfaces(all));
    ASSERT_EQ(all.size(), names->size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i]->pairs, ethernet::getInterface((*names)[i])->pairs);
    }
    EXPECT_EQ(ethernet::getInterface("eth9"), nullptr);
}

TEST(EthernetInterfaces, KeepWhatIsSetUnlessItIsMalformedOrFixed) {
    types::KeyValPair eth0 = *ethernet::getInterface("eth0");
    const types::KeyValPair original = eth0;
    eth0.pairs["mtu"] = "1400";
    eth0.pairs["note"] = "front";
    EXPECT_EQ(ethernet::setInterface(eth0), 0);
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs, eth0.pairs);
    for (const auto& [key, value] : {std::pair{"name", "eth9"},
                                     {"type", "vlan"},
                                     {"hwAddress", "02:00:00:00:00:00"},
                                     {"virtualAddresses", "10.0.0.1"},
                                     {"mtu", "1500 "},
                                     {"mtu", "67"},
                                     {"enabled", "yes"},
                                     {"ipAddress", "10.0.0.256"},
                                     {"members", "eth1,agg0"},
                                     {"parent", "vlan100"},
                                     {"vlanId", "4095"}}) {
        types::KeyValPair changed = eth0;
        changed.pairs[key] = value;
        EXPECT_NE(ethernet::setInterface(changed), 0) << key;
    }
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs, eth0.pairs);
    EXPECT_EQ(ethernet::clearInterface("eth0"), 0);
    EXPECT_THAT(ethernet::getInterface("eth0")->pairs, Not(Contains(Key("ipAddress"))));
    EXPECT_FALSE(ethernet::getInterfaceStatus("eth0")->isEnabled);
    EXPECT_NE(ethernet::clearInterface("eth9"), 0);
    types::KeyValPair restored = original;
    EXPECT_EQ(ethernet::setInterface(restored), 0);
}

TEST(EthernetInterfaces, HaveAStatusOfTheirKindOnly) {
    EXPECT_EQ(ethernet::getInterfaceStatus("agg0"), nullptr);
    EXPECT_EQ(ethernet::getAggregateStatus("eth0"), nullptr);
    EXPECT_EQ(ethernet::getVLANStatus("eth9"), nullptr);
    EXPECT_TRUE(ethernet::getInterfaceStatus("eth1")->isUp);
    EXPECT_FALSE(ethernet::getInterfaceStatus("eth2")->isUp);
    EXPECT_TRUE(ethernet::getAggregateStatus("agg0")->isUp);
    EXPECT_TRUE(ethernet::getVLANStatus("vlan100")->isUp);
    EXPECT_THAT(ethernet::getInterfaceStatus("eth1")->details, IsEmpty());

    types::KeyValPair eth1 = *ethernet::getInterface("eth1");
    ethernet::clearInterface("eth1");
    EXPECT_FALSE(ethernet::getVLANStatus("vlan100")->isUp) << "its only working member is off";
    ethernet::setInterface(eth1);
}

TEST(EthernetInterfaces, ShowVirtualAddressesWhereTheyAreAdded) {
    EXPECT_EQ(ethernet::addVIPToInterface("eth1", "10.0.0.91"), 0);
    EXPECT_EQ(ethernet::addVIPToInterface("eth1", "2001:db8::91"), 0);
    EXPECT_NE(ethernet::addVIPToLoopback("10.0.0.91"), 0);
    EXPECT_NE(ethernet::addVIPToLoopback("10.0.0.10"), 0) << "the address of eth0";
    EXPECT_NE(ethernet::addVIPToInterface("eth1", "10.0.0"), 0);
    EXPECT_NE(ethernet::addVIPToInterface("eth9", "10.0.0.92"), 0);
    EXPECT_THAT(ethernet::getInterface("eth1")->pairs,
                Contains(Pair("virtualAddresses", "10.0.0.91,2001:db8::91")));
    const types::InterfaceStatus* status = ethernet::getInterfaceStatus("eth1");
    ASSERT_EQ(status->details.size(), 2U);
    EXPECT_THAT(status->details[1]->pairs, Contains(Pair("address", "2001:db8::91")));
    EXPECT_EQ(ethernet::removeVIPFromInterface("eth1", "10.0.0.91"), 0);
    EXPECT_NE(ethernet::removeVIPFromInterface("eth1", "10.0.0.91"), 0);
    EXPECT_EQ(ethernet::removeVIPFromInterface("eth1", "2001:db8::91"), 0);
    EXPECT_THAT(ethernet::getInterface("eth1")->pairs, Not(Contains(Key("virtualAddresses"))));
    EXPECT_EQ(ethernet::addVIPToLoopback("10.0.0.93"), 0);
    EXPECT_EQ(ethernet::removeVIPFromLoopback("10.0.0.93"), 0);
}

TEST(EthernetInterfaces, TakeAHardwareAddressUntilItIsReset) {
    const std::string builtIn = ethernet::getInterface("eth0")->pairs.at("hwAddress");
    EXPECT_EQ(ethernet::setHWAddressImmediate("eth0", "02:00:5E:10:00:01"), 0);
    for (const char* malformed :
         {"", "02:00:5e:10:00", "02:00:5e:10:00:0g", "01:00:5e:10:00:01", "02-00-5e-10-00-01"}) {
        EXPECT_NE(ethernet::setHWAddressImmediate("eth0", malformed), 0) << malformed;
    }
    EXPECT_NE(ethernet::setHWAddressImmediate("lo", "02:00:5e:10:00:01"), 0);
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs.at("hwAddress"), "02:00:5E:10:00:01");
    EXPECT_EQ(ethernet::resetHWAddressImmediate("eth0"), 0);
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs.at("hwAddress"), builtIn);
}

TEST(EthernetInterfaces, KeepTheRecordsOfAThreadWhileOthersAsk) {
    const types::KeyValPair* eth0 = ethernet::getInterface("eth0");
    const types::InterfaceStatus* status = ethernet::getAggregateStatus("agg0");
    const std::size_t details = status->details.size();
    std::thread{[] {
        ethernet::getInterface("eth1");
        ethernet::addVIPToInterface("agg0", "10.0.0.94");
        ethernet::getAggregateStatus("agg0");
    }}.join();
    ethernet::getVLANStatus("vlan100");
    EXPECT_THAT(eth0->pairs, Contains(Pair("name", "eth0")));
    EXPECT_EQ(status->details.size(), details);
    EXPECT_EQ(ethernet::getAggregateStatus("agg0")->details.size(), details + 1);
    EXPECT_EQ(ethernet::removeVIPFromInterface("agg0", "10.0.0.94"), 0);
}

}  // namespace
