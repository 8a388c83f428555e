#include <algorithm>
#include <cstring>
#include <functional>

#include "mocks/ethernetInterfaces.h"
#include "support/bridgeTest.h"

using talvern::types::InterfaceStatus;
using talvern::types::KeyValPair;
using testing::DoAll;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Pair;
using testing::Return;
using testing::SetArgReferee;

namespace {

class EthernetInterfacesTest : public BridgeTest {
  protected:
    template <typename... Arguments>
    Outcome callInterfaces(const std::string& native, Arguments... arguments) {
        return call("appliance/EthernetInterfaces", native, arguments...);
    }

    /// How many classes and members were looked up so far.
    auto lookups() {
        return std::count_if(table.calls().begin(), table.calls().end(), [](const JniTable::Call& call) {
            const std::string_view function{call.function};
            return function == "FindClass" || function == "GetMethodID";
        });
    }

    /// The field that the constructor of a status has kept.
    jobject detailsOf(jobject status) {
        jfieldID field = env->GetFieldID(env->GetObjectClass(status), "details", "[Ljava/util/Map;");
        return env->GetObjectField(status, field);
    }

    EthernetInterfacesMock& interfaces = mock<EthernetInterfacesMock>();
};

TEST_F(EthernetInterfacesTest, GivesTheNamesAndTakesNullForNone) {
    using Texts = std::vector<std::string>;
    EXPECT_CALL(interfaces, getInterfaceNames)
        .WillOnce([] {
            return std::make_unique<Texts>(Texts{"lo", "eth0"});
        })
        .WillOnce([] { return std::make_unique<Texts>(); })
        .WillOnce([] { return nullptr; });
    for (const char* names : {"[lo, eth0]", "[]", "[]"}) {
        EXPECT_EQ(callInterfaces("_getInterfaceNames").resultText, names);
    }
}

TEST_F(EthernetInterfacesTest, GivesEachInterfaceItsMap) {
    jclass hashMaps = env->FindClass("[Ljava/util/HashMap;");
    KeyValPair empty;
    for (const auto& [list, text] :
         {std::pair{std::vector<KeyValPair*>{}, "[]"},
          {{&interfaces.eth1, &empty, &interfaces.eth0}, "[{name=eth1}, {}, {name=eth0, mtu=1500}]"}}) {
        EXPECT_CALL(interfaces, getInterfaces).WillOnce([&, list = list](auto& filled) {
            EXPECT_THAT(filled, IsEmpty());
            EXPECT_EQ(lookups(), 0);
            filled = list;
            return true;
        });
        table.restart();
        const Outcome outcome = callInterfaces("_getEthernetInterfaces");
        EXPECT_EQ(outcome.resultText, text);
        EXPECT_TRUE(env->IsInstanceOf(outcome.result.l, hashMaps));
        EXPECT_EQ(lookups(), 3);
    }
}

TEST_F(EthernetInterfacesTest, GivesNullWhereThePlatformHasNothing) {
    EXPECT_CALL(interfaces, getInterfaces)
        .WillOnce(DoAll(SetArgReferee<0>(std::vector{&interfaces.eth0}), Return(false)));
    EXPECT_CALL(interfaces, getInterface("eth9")).WillOnce(Return(nullptr));
    EXPECT_CALL(interfaces, getInterfaceStatus("eth9")).WillOnce(Return(nullptr));
    EXPECT_EQ(callInterfaces("_getEthernetInterfaces").resultText, "null");
    EXPECT_EQ(callInterfaces("_getEthernetInterface", javaString("eth9")).resultText, "null");
    EXPECT_EQ(callInterfaces("_getEthernetInterfaceStatus", javaString("eth9")).resultText, "null");
}

TEST_F(EthernetInterfacesTest, LooksUpAllThatItNeedsBeforeItAsksForOneInterface) {
    std::ptrdiff_t before = 0;
    EXPECT_CALL(interfaces, getInterface("eth0")).WillOnce([&] {
        before = lookups();
        EXPECT_STREQ(table.calls().back().function, "NewObjectA");
        return &interfaces.eth0;
    });
    EXPECT_EQ(callInterfaces("_getEthernetInterface", javaString("eth0")).resultText,
              "{name=eth0, mtu=1500}");
    EXPECT_EQ(before, lookups());

    table.restart();
    EXPECT_CALL(interfaces, getInterfaceStatus("eth0")).WillOnce([&] {
        before = lookups();
        return &interfaces.status;
    });
    callInterfaces("_getEthernetInterfaceStatus", javaString("eth0"));
    EXPECT_EQ(before, lookups());
}

TEST_F(EthernetInterfacesTest, NamesTheNullRecordOfAList) {
    interfaces.status.details = {&interfaces.eth0, nullptr};
    EXPECT_CALL(interfaces, getInterfaces)
        .WillOnce(DoAll(SetArgReferee<0>(interfaces.status.details), Return(true)));
    EXPECT_EQ(callInterfaces("_getEthernetInterfaces").resultText, "null");
    EXPECT_EQ(takeThrown(),
              "com.kvo.talvern.TalvernException: null record in the list of interfaces at index 1");
    EXPECT_EQ(callInterfaces("_getVLANStatus", javaString("vlan1")).resultText, "null");
    EXPECT_EQ(
        takeThrown(),
        "com.kvo.talvern.TalvernException: null record in the list of details of an interface at index 1");
}

TEST_F(EthernetInterfacesTest, AsksForTheStatusOfEachKindOfInterface) {
    InterfaceStatus plain;
    InterfaceStatus aggregate;
    InterfaceStatus vlan;
    std::memset(plain.unread, 0xFF, sizeof plain.unread);
    std::memset(plain.alsoUnread, 0xFF, sizeof plain.alsoUnread);
    aggregate.isEnabled = true;
    vlan.isUp = true;
    vlan.details = {&interfaces.eth1, &interfaces.eth0, &interfaces.eth1};
    EXPECT_CALL(interfaces, getInterfaceStatus("eth0")).WillOnce(Return(&plain));
    EXPECT_CALL(interfaces, getAggregateStatus("agg0")).WillOnce(Return(&aggregate));
    EXPECT_CALL(interfaces, getVLANStatus("vlan1")).WillOnce(Return(&vlan));

    EXPECT_EQ(callInterfaces("_getEthernetInterfaceStatus", javaString("eth0")).resultText,
              "eth0 disabled down []");
    EXPECT_EQ(callInterfaces("_getAggregateStatus", javaString("agg0")).resultText, "agg0 enabled down []");
    EXPECT_EQ(callInterfaces("_getVLANStatus", javaString("vlan1")).resultText,
              "vlan1 disabled up [{name=eth1}, {name=eth0, mtu=1500}, {name=eth1}]");
}

TEST_F(EthernetInterfacesTest, BuildsTheStatusFromTheCallersNameAndNullForNoDetails) {
    interfaces.status.details.clear();
    jstring name = javaString("eth0");
    jobject status = callInterfaces("_getEthernetInterfaceStatus", name).result.l;
    jmethodID getName = env->GetMethodID(env->GetObjectClass(status), "getName", "()Ljava/lang/String;");
    EXPECT_TRUE(env->IsSameObject(env->CallObjectMethod(status, getName), name));
    EXPECT_EQ(detailsOf(status), nullptr);
}

TEST_F(EthernetInterfacesTest, SetsAttributesWithTheLastValueOfEachKey) {
    EXPECT_CALL(interfaces,
                setInterface(Field(&KeyValPair::pairs, ElementsAre(Pair("a", "3"), Pair("b", "2")))))
        .WillOnce(Return(-4));
    EXPECT_EQ(
        callInterfaces("_setEthernetInterface", javaStrings({"a", "b", "a"}), javaStrings({"1", "2", "3"}))
            .result.i,
        -4);
    EXPECT_CALL(interfaces, setInterface(Field(&KeyValPair::pairs, IsEmpty()))).WillOnce(Return(7));
    EXPECT_EQ(callInterfaces("_setEthernetInterface", javaStrings({}), javaStrings({})).result.i, 7);
}

TEST_F(EthernetInterfacesTest, RefusesKeysAndValuesThatDoNotMatch) {
    EXPECT_CALL(interfaces, setInterface).Times(0);
    const auto set = [&](jobjectArray keys, jobjectArray values) {
        EXPECT_EQ(callInterfaces("_setEthernetInterface", keys, values).result.i, 112);
    };
    set(javaStrings({"a", "b"}), javaStrings({"1", "2", "3"}));
    set(javaStrings({"a"}), javaStrings({}));

    for (const bool isKeyMissing : {true, false}) {
        jobjectArray keys = javaStrings({"a", "b"});
        jobjectArray values = javaStrings({"1", "2"});
        env->SetObjectArrayElement(isKeyMissing ? keys : values, 1, nullptr);
        set(keys, values);
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: null array element");
    }
}

TEST_F(EthernetInterfacesTest, PassesTextsInOrderAndTheResultUnchanged) {
    using Mock = EthernetInterfacesMock;
    const std::pair<const char*, std::function<void(Mock&, int)>> natives[] = {
        {"_addVIPToInterface",
         [](Mock& m, int r) { EXPECT_CALL(m, addVIPToInterface("A", "B")).WillOnce(Return(r)); }},
        {"_removeVIPFromInterface",
         [](Mock& m, int r) { EXPECT_CALL(m, removeVIPFromInterface("A", "B")).WillOnce(Return(r)); }},
        {"_setHWAddressImmediate",
         [](Mock& m, int r) { EXPECT_CALL(m, setHWAddressImmediate("A", "B")).WillOnce(Return(r)); }},
        {"_addVIPToLoopback",
         [](Mock& m, int r) { EXPECT_CALL(m, addVIPToLoopback("A")).WillOnce(Return(r)); }},
        {"_removeVIPFromLoopback",
         [](Mock& m, int r) { EXPECT_CALL(m, removeVIPFromLoopback("A")).WillOnce(Return(r)); }},
        {"_resetHWAddressImmediate",
         [](Mock& m, int r) { EXPECT_CALL(m, resetHWAddressImmediate("A")).WillOnce(Return(r)); }},
        {"_clearEthernetInterface",
         [](Mock& m, int r) { EXPECT_CALL(m, clearInterface("A")).WillOnce(Return(r)); }},
    };
    for (const auto& [native, expect] : natives) {
        const bool hasTwo =
            parameterCount(bridgeNative("appliance/EthernetInterfaces", native).signature) == 2;
        for (const int result : {0, -5, 112}) {
            SCOPED_TRACE(native);
            expect(interfaces, result);
            const Outcome outcome = hasTwo ? callInterfaces(native, javaString("A"), javaString("B"))
                                           : callInterfaces(native, javaString("A"));
            EXPECT_EQ(outcome.result.i, result);
        }
    }
}

}  // namespace
