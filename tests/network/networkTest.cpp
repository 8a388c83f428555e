#include "support/bridgeTest.h"

using namespace talvern;
using testing::InSequence;
using testing::Return;

namespace {

class NetworkTest : public BridgeTest {
  protected:
    types::KeyValPair eth0{{{"mtu", "1500"}, {"name", "eth0"}}}, eth1{{{"name", "eth1"}}}, empty;
    types::InterfaceStatus status;
};

TEST_F(NetworkTest, GivesEachInterfaceItsMap) {
    expectRead<&ethernetInterfaces::getInterfaces>(
        "_getEthernetInterfaces", std::vector{&eth1, &empty, &eth0}, "[{name=eth1}, {}, {name=eth0, mtu=1500}]", "[]");
}

TEST_F(NetworkTest, NamesTheNullRecordOfAList) {
    const std::string inTheList = "com.kvo.talvern.TalvernException: null record in the list of ";
    status.details = {&eth0, nullptr};
    EXPECT_CALL(mockOf<&ethernetInterfaces::getInterfaces>(), Call).WillOnce(deliver(status.details));
    EXPECT_EQ(ask("_getEthernetInterfaces"), "null");
    EXPECT_EQ(takeThrown(), inTheList + "interfaces at index 1");
    EXPECT_CALL(mockOf<&ethernetInterfaces::getVLANStatus>(), Call).WillOnce(Return(&status));
    EXPECT_EQ(ask("_getVLANStatus", "vlan1"), "null");
    EXPECT_EQ(takeThrown(), inTheList + "details of an interface at index 1");
}

TEST_F(NetworkTest, BuildsTheStatusFromTheCallersNameAndNullForNoDetails) {
    EXPECT_CALL(mockOf<&ethernetInterfaces::getInterfaceStatus>(), Call).WillOnce(Return(&status));
    jstring name = javaString("eth0");
    jobject javaStatus = call("_getEthernetInterfaceStatus", name).result.l;
    EXPECT_TRUE(env->IsSameObject(callMethod(javaStatus, "getName", "()Ljava/lang/String;"), name));
    jfieldID details = env->GetFieldID(env->GetObjectClass(javaStatus), "details", "[Ljava/util/Map;");
    EXPECT_EQ(env->GetObjectField(javaStatus, details), nullptr);
}

TEST_F(NetworkTest, RefusesKeysAndValuesThatDoNotMatch) {
    EXPECT_CALL(mockOf<&ethernetInterfaces::setInterface>(), Call).Times(0);
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b"}, Texts{"1", "2", "3"}), "112");
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a"}, Texts{}), "112");
}

TEST_F(NetworkTest, CarriesTheCompanionListOverToTheNewNameServers) {
    const Texts companions{"timeout:2", "", "timeout:2"};
    for (const auto& [servers, answer] : {std::pair{Texts{}, 0}, {{"10.0.0.9", "", "10.0.0.8"}, 1}, {{""}, -1}}) {
        const InSequence inOrder;
        EXPECT_CALL(mockOf<&nameServers::getNameServers>(), Call(testing::NotNull()))
            .WillOnce(testing::DoAll(testing::SetArgPointee<0>(companions), Return(Texts{"10.0.0.1"})));
        EXPECT_CALL(mockOf<&nameServers::setNameServers>(), Call(servers, testing::Pointee(companions)))
            .WillOnce(Return(answer));
        EXPECT_EQ(call("_setNameServers", servers).result.z, answer == 0);
    }
}

TEST_F(NetworkTest, TracesEachAddress) {
    EXPECT_CALL(mockOf<&hostsUtils::getAddresses>(), Call).WillOnce(Return(Texts{"10.0.0.1", "%s%n"}));
    const InSequence inOrder;
    EXPECT_CALL(mockOfTrace(), Call(7, "Address in JNI is 10.0.0.1"));
    EXPECT_CALL(mockOfTrace(), Call(7, "Address in JNI is %s%n"));
    EXPECT_EQ(ask("_getAddresses"), "[10.0.0.1, %s%n]");
}

}  // namespace
