#include "platform/ethernetInterfaces.h"
#include "support/bridgeTest.h"

using namespace talvern;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Pair;
using testing::Return;
using types::InterfaceStatus;
using types::KeyValPair;

namespace {

const std::string ours = "com.kvo.talvern.TalvernException: ";

class EthernetInterfacesTest : public BridgeTest {
  protected:
    KeyValPair eth0{{{"mtu", "1500"}, {"name", "eth0"}}};
    KeyValPair eth1{{{"name", "eth1"}}};
    InterfaceStatus status;
};

TEST_F(EthernetInterfacesTest, GivesTheNamesAndTakesNullForNone) {
    EXPECT_CALL(mockOf<&ethernetInterfaces::getInterfaceNames>(), Call)
        .WillOnce([] {
            return new Texts{"lo", "eth0"};
        })
        .WillOnce(Return(nullptr));
    EXPECT_EQ(ask("_getInterfaceNames"), "[lo, eth0]");
    EXPECT_EQ(ask("_getInterfaceNames"), "[]");
}

TEST_F(EthernetInterfacesTest, GivesEachInterfaceItsMap) {
    KeyValPair empty;
    expectRead<&ethernetInterfaces::getInterfaces>(
        "_getEthernetInterfaces", std::vector<KeyValPair*>{&eth1, &empty, &eth0},
        "[{name=eth1}, {}, {name=eth0, mtu=1500}]", "[]");
}

TEST_F(EthernetInterfacesTest, NamesTheNullRecordOfAList) {
    status.details = {&eth0, nullptr};
    EXPECT_CALL(mockOf<&ethernetInterfaces::getInterfaces>(), Call).WillOnce(deliver(status.details));
    EXPECT_EQ(ask("_getEthernetInterfaces"), "null");
    EXPECT_EQ(takeThrown(), ours + "null record in the list of interfaces at index 1");
    EXPECT_CALL(mockOf<&ethernetInterfaces::getVLANStatus>(), Call).WillOnce(Return(&status));
    EXPECT_EQ(ask("_getVLANStatus", "vlan1"), "null");
    EXPECT_EQ(takeThrown(), ours + "null record in the list of details of an interface at index 1");
}

TEST_F(EthernetInterfacesTest, BuildsTheStatusFromTheCallersNameAndNullForNoDetails) {
    EXPECT_CALL(mockOf<&ethernetInterfaces::getInterfaceStatus>(), Call).WillOnce(Return(&status));
    jstring name = javaString("eth0");
    jobject javaStatus = call("_getEthernetInterfaceStatus", name).result.l;
    EXPECT_TRUE(env->IsSameObject(callMethod(javaStatus, "getName", "()Ljava/lang/String;"), name));
    jfieldID details = env->GetFieldID(env->GetObjectClass(javaStatus), "details", "[Ljava/util/Map;");
    EXPECT_EQ(env->GetObjectField(javaStatus, details), nullptr);
}

TEST_F(EthernetInterfacesTest, SetsAttributesWithTheLastValueOfEachKey) {
    EXPECT_CALL(
        mockOf<&ethernetInterfaces::setInterface>(),
        Call(Field(&KeyValPair::pairs, ElementsAre(Pair("a", "3"), Pair("b", "2")))))
        .WillOnce(Return(-4));
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b", "a"}, Texts{"1", "2", "3"}), "-4");
    EXPECT_CALL(mockOf<&ethernetInterfaces::setInterface>(), Call(Field(&KeyValPair::pairs, IsEmpty())))
        .WillOnce(Return(7));
    EXPECT_EQ(ask("_setEthernetInterface", Texts{}, Texts{}), "7");
}

TEST_F(EthernetInterfacesTest, RefusesKeysAndValuesThatDoNotMatch) {
    EXPECT_CALL(mockOf<&ethernetInterfaces::setInterface>(), Call).Times(0);
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b"}, Texts{"1", "2", "3"}), "112");
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a"}, Texts{}), "112");

    jobjectArray withNull = javaStrings({"a", "b"});
    env->SetObjectArrayElement(withNull, 1, nullptr);
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b"}, withNull), "112");
    EXPECT_EQ(takeThrown(), ours + "null array element");
}

}  // namespace
