#include <gmock/gmock.h>

#include "wholePlatform.h"

using namespace talvern;
using testing::Contains;
using testing::ElementsAre;
using testing::Key;
using testing::Not;
using testing::Pair;

namespace {

using Texts = std::vector<std::string>;

TEST(Names, AreKeptOrRefusedAsAWhole) {
    for (const char* name : {"", "-rack", "rack-", "two words", "\xC3\xA4rack"}) {
        EXPECT_NE(nodeName::set(name), 0) << name;
    }
    EXPECT_NE(nodeName::set(std::string(254, 'a')), 0);

    const Texts options{"timeout:1"};
    EXPECT_EQ(nameServers::setNameServers({"10.0.0.1", "2001:db8::1"}, &options), 0);
    EXPECT_NE(nameServers::setNameServers({"10.0.0.2", "10.0.0.256"}, nullptr), 0);
    Texts companions;
    EXPECT_THAT(nameServers::getNameServers(&companions), ElementsAre("10.0.0.1", "2001:db8::1"));
    EXPECT_EQ(companions, options);

    EXPECT_EQ(timeServers::setTimeServers({"ntp.example", "10.0.0.1"}, &companions), 0);
    EXPECT_NE(timeServers::setTimeServers({"ntp.example", "not a name"}, &companions), 0);
    EXPECT_THAT(companions, ElementsAre("not a name"));
    EXPECT_THAT(timeServers::getTimeServers(nullptr), ElementsAre("ntp.example", "10.0.0.1"));

    EXPECT_TRUE(hostsUtils::setHostnames("10.0.0.77", {"b", "a", "b"}));
    EXPECT_FALSE(hostsUtils::setHostnames("10.0.0.77", {"a", ""}));
    EXPECT_THAT(hostsUtils::getHostnames("10.0.0.77"), ElementsAre("b", "a", "b"));
    EXPECT_TRUE(hostsUtils::setHostnames("10.0.0.77", {}));
    EXPECT_FALSE(hostsUtils::deleteHostnames("10.0.0.77"));
}

TEST(Diagnostics, KnowTheApplianceAndItsHostsTableWithoutANetwork) {
    ASSERT_EQ(nodeName::set("rack-7"), 0);
    ASSERT_TRUE(hostsUtils::deleteHostnames("127.0.0.1"));
    for (const auto& [host, address] :
         {std::pair{"LocalHost", "127.0.0.1"},
          {"db", "10.0.0.20"},
          {"2001:db8::1", "2001:db8::1"},
          {"example.com", ""}}) {
        std::string result;
        EXPECT_EQ(diagnosticUtils::dnsResolve(host, result), *address != '\0') << host;
        EXPECT_EQ(result, address);
        EXPECT_EQ(diagnosticUtils::pingHost(host, result), *address != '\0') << host;
    }
    for (const auto& [host, reason] :
         {std::pair{"rack-7", "Connection refused"}, {"db", "No route to host"}, {"example.com", "Host not found"}}) {
        std::string error;
        EXPECT_FALSE(diagnosticUtils::tcpConnect(host, 1, error));
        EXPECT_THAT(error, testing::HasSubstr(reason)) << host;
    }
    EXPECT_TRUE(hostsUtils::setHostnames("127.0.0.1", {"localhost"}));
    EXPECT_EQ(nodeName::init(), 0);
}

namespace ethernet = ethernetInterfaces;

TEST(EthernetInterfaces, KeepWhatIsSetUnlessItIsMalformedOrFixed) {
    types::KeyValPair original = *ethernet::getInterface("eth0");
    types::KeyValPair eth0 = original;
    eth0.pairs["mtu"] = "1400";
    eth0.pairs["note"] = "front";
    EXPECT_EQ(ethernet::setInterface(eth0), 0);
    for (const auto& [key, value] :
         {std::pair{"name", "eth9"},
          {"type", "vlan"},
          {"hwAddress", "02:00:00:00:00:00"},
          {"virtualAddresses", "10.0.0.1"},
          {"mtu", "1500 "},
          {"mtu", "67"},
          {"enabled", "yes"},
          {"ipAddress", "10.0.0.256"},
          {"members", "eth1,agg0"},
          {"parent", "vlan100"}}) {
        types::KeyValPair changed = eth0;
        changed.pairs[key] = value;
        EXPECT_NE(ethernet::setInterface(changed), 0) << key;
    }
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs, eth0.pairs);
    EXPECT_EQ(ethernet::clearInterface("eth0"), 0);
    EXPECT_THAT(ethernet::getInterface("eth0")->pairs, Not(Contains(Key("ipAddress"))));
    EXPECT_FALSE(ethernet::getInterfaceStatus("eth0")->isEnabled);
    EXPECT_EQ(ethernet::setInterface(original), 0);

    EXPECT_EQ(ethernet::setHWAddressImmediate("eth0", "02:00:5E:10:00:01"), 0);
    for (const char* malformed : {"02:00:5e:10:00", "02:00:5e:10:00:0g", "01:00:5e:10:00:01"}) {
        EXPECT_NE(ethernet::setHWAddressImmediate("eth0", malformed), 0) << malformed;
    }
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs.at("hwAddress"), "02:00:5E:10:00:01");
    EXPECT_EQ(ethernet::resetHWAddressImmediate("eth0"), 0);
    EXPECT_EQ(ethernet::getInterface("eth0")->pairs, original.pairs);
}

TEST(EthernetInterfaces, HaveAStatusOfTheirKindOnly) {
    EXPECT_EQ(ethernet::getInterfaceStatus("agg0"), nullptr);
    EXPECT_EQ(ethernet::getAggregateStatus("eth0"), nullptr);
    EXPECT_EQ(ethernet::getVLANStatus("eth9"), nullptr);
    EXPECT_TRUE(ethernet::getAggregateStatus("agg0")->isUp);
    EXPECT_TRUE(ethernet::getVLANStatus("vlan100")->isUp);
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
    EXPECT_THAT(ethernet::getInterface("eth1")->pairs, Contains(Pair("virtualAddresses", "10.0.0.91,2001:db8::91")));
    EXPECT_THAT(ethernet::getInterfaceStatus("eth1")->details.at(1)->pairs, Contains(Pair("address", "2001:db8::91")));
    EXPECT_EQ(ethernet::removeVIPFromInterface("eth1", "10.0.0.91"), 0);
    EXPECT_NE(ethernet::removeVIPFromInterface("eth1", "10.0.0.91"), 0);
    EXPECT_EQ(ethernet::removeVIPFromInterface("eth1", "2001:db8::91"), 0);
}

}  // namespace
