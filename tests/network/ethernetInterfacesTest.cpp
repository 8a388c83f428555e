#include <cstring>

#include "mocks/network.h"
#include "support/bridgeTest.h"

using talvern::types::InterfaceStatus;
using talvern::types::KeyValPair;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Pair;
using testing::Return;

namespace {

const std::string ours = "com.kvo.talvern.TalvernException: ";

class EthernetInterfacesTest : public BridgeTest {
  protected:
    /// How many classes and members were looked up so far.
    auto lookups() { return callsOf({"FindClass", "GetMethodID"}).size(); }

    EthernetInterfacesMock& interfaces = mock<EthernetInterfacesMock>();
};

TEST_F(EthernetInterfacesTest, GivesTheNamesAndTakesNullForNone) {
    EXPECT_CALL(interfaces, getInterfaceNames)
        .WillOnce([] {
            return std::make_unique<Texts>(Texts{"lo", "eth0"});
        })
        .WillOnce([] { return nullptr; });
    EXPECT_EQ(ask("_getInterfaceNames"), "[lo, eth0]");
    EXPECT_EQ(ask("_getInterfaceNames"), "[]");
}

TEST_F(EthernetInterfacesTest, GivesEachInterfaceItsMap) {
    KeyValPair empty;
    for (const auto& [list, text] :
         {std::pair{std::vector<KeyValPair*>{}, "[]"},
          {{&interfaces.eth1, &empty, &interfaces.eth0}, "[{name=eth1}, {}, {name=eth0, mtu=1500}]"}}) {
        table.restart();
        EXPECT_CALL(interfaces, getInterfaces(IsEmpty())).WillOnce([&, list = list](auto& filled) {
            EXPECT_EQ(lookups(), 0) << "the platform is asked first";
            filled = list;
            return true;
        });
        const Outcome outcome = call("_getEthernetInterfaces");
        EXPECT_EQ(outcome.resultText, text);
        EXPECT_TRUE(env->IsInstanceOf(outcome.result.l, env->FindClass("[Ljava/util/HashMap;")));
        EXPECT_EQ(lookups(), 3);
    }
}

TEST_F(EthernetInterfacesTest, GivesNullWhereThePlatformHasNothing) {
    EXPECT_CALL(interfaces, getInterfaces).WillOnce(deliver(interfaces.status.details, false));
    EXPECT_CALL(interfaces, getInterface("eth9")).WillOnce(Return(nullptr));
    EXPECT_CALL(interfaces, getInterfaceStatus("eth9")).WillOnce(Return(nullptr));
    EXPECT_EQ(ask("_getEthernetInterfaces"), "null");
    EXPECT_EQ(ask("_getEthernetInterface", "eth9"), "null");
    EXPECT_EQ(ask("_getEthernetInterfaceStatus", "eth9"), "null");
}

TEST_F(EthernetInterfacesTest, LooksUpAllThatItNeedsBeforeItAsksForOneInterface) {
    std::size_t before = 0;
    EXPECT_CALL(interfaces, getInterface("eth0")).WillOnce([&] {
        before = lookups();
        EXPECT_STREQ(table.calls().back().function, "NewObjectA");
        return &interfaces.eth0;
    });
    EXPECT_EQ(ask("_getEthernetInterface", "eth0"), "{name=eth0, mtu=1500}");
    EXPECT_EQ(before, lookups());

    EXPECT_CALL(interfaces, getInterfaceStatus("eth0")).WillOnce([&] {
        before = lookups();
        return &interfaces.status;
    });
    call("_getEthernetInterfaceStatus", "eth0");
    EXPECT_EQ(before, lookups());
}

TEST_F(EthernetInterfacesTest, NamesTheNullRecordOfAList) {
    interfaces.status.details = {&interfaces.eth0, nullptr};
    EXPECT_CALL(interfaces, getInterfaces).WillOnce(deliver(interfaces.status.details));
    EXPECT_EQ(ask("_getEthernetInterfaces"), "null");
    EXPECT_EQ(takeThrown(), ours + "null record in the list of interfaces at index 1");
    EXPECT_EQ(ask("_getVLANStatus", "vlan1"), "null");
    EXPECT_EQ(takeThrown(), ours + "null record in the list of details of an interface at index 1");
}

TEST_F(EthernetInterfacesTest, AsksForTheStatusOfEachKindOfInterface) {
    InterfaceStatus plain, aggregate, vlan;
    std::memset(plain.unread, 0xFF, sizeof plain.unread);
    std::memset(plain.alsoUnread, 0xFF, sizeof plain.alsoUnread);
    aggregate.isEnabled = true;
    vlan.isUp = true;
    vlan.details = {&interfaces.eth1, &interfaces.eth0, &interfaces.eth1};
    EXPECT_CALL(interfaces, getInterfaceStatus("eth0")).WillOnce(Return(&plain));
    EXPECT_CALL(interfaces, getAggregateStatus("agg0")).WillOnce(Return(&aggregate));
    EXPECT_CALL(interfaces, getVLANStatus("vlan1")).WillOnce(Return(&vlan));

    EXPECT_EQ(ask("_getEthernetInterfaceStatus", "eth0"), "eth0 disabled down []");
    EXPECT_EQ(ask("_getAggregateStatus", "agg0"), "agg0 enabled down []");
    EXPECT_EQ(ask("_getVLANStatus", "vlan1"),
              "vlan1 disabled up [{name=eth1}, {name=eth0, mtu=1500}, {name=eth1}]");
}

TEST_F(EthernetInterfacesTest, BuildsTheStatusFromTheCallersNameAndNullForNoDetails) {
    interfaces.status.details.clear();
    jstring name = javaString("eth0");
    jobject status = call("_getEthernetInterfaceStatus", name).result.l;
    EXPECT_TRUE(env->IsSameObject(callMethod(status, "getName", "()Ljava/lang/String;"), name));
    jfieldID details = env->GetFieldID(env->GetObjectClass(status), "details", "[Ljava/util/Map;");
    EXPECT_EQ(env->GetObjectField(status, details), nullptr);
}

TEST_F(EthernetInterfacesTest, SetsAttributesWithTheLastValueOfEachKey) {
    EXPECT_CALL(interfaces,
                setInterface(Field(&KeyValPair::pairs, ElementsAre(Pair("a", "3"), Pair("b", "2")))))
        .WillOnce(Return(-4));
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b", "a"}, Texts{"1", "2", "3"}), "-4");
    EXPECT_CALL(interfaces, setInterface(Field(&KeyValPair::pairs, IsEmpty()))).WillOnce(Return(7));
    EXPECT_EQ(ask("_setEthernetInterface", Texts{}, Texts{}), "7");
}

TEST_F(EthernetInterfacesTest, RefusesKeysAndValuesThatDoNotMatch) {
    EXPECT_CALL(interfaces, setInterface).Times(0);
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b"}, Texts{"1", "2", "3"}), "112");
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a"}, Texts{}), "112");

    jobjectArray withNull = javaStrings({"a", "b"});
    env->SetObjectArrayElement(withNull, 1, nullptr);
    EXPECT_EQ(ask("_setEthernetInterface", Texts{"a", "b"}, withNull), "112");
    EXPECT_EQ(takeThrown(), ours + "null array element");
}

TEST_F(EthernetInterfacesTest, PassesTextsInOrderAndTheResultUnchanged) {
    for (const int result : {0, -5, 112}) {
        EXPECT_CALL(interfaces, addVIPToInterface("A", "B")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, removeVIPFromInterface("C", "D")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, setHWAddressImmediate("E", "F")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, addVIPToLoopback("G")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, removeVIPFromLoopback("H")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, resetHWAddressImmediate("I")).WillOnce(Return(result));
        EXPECT_CALL(interfaces, clearInterface("J")).WillOnce(Return(result));
        EXPECT_EQ(call("_addVIPToInterface", "A", "B").result.i, result);
        EXPECT_EQ(call("_removeVIPFromInterface", "C", "D").result.i, result);
        EXPECT_EQ(call("_setHWAddressImmediate", "E", "F").result.i, result);
        EXPECT_EQ(call("_addVIPToLoopback", "G").result.i, result);
        EXPECT_EQ(call("_removeVIPFromLoopback", "H").result.i, result);
        EXPECT_EQ(call("_resetHWAddressImmediate", "I").result.i, result);
        EXPECT_EQ(call("_clearEthernetInterface", "J").result.i, result);
    }
}

}  // namespace
