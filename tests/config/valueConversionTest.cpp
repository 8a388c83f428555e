#include <functional>
#include <map>
#include <set>

#include "config/configTest.h"

using config::ArrayValue;
using config::SimpleValue;
using config::StructValue;
using config::Value;

namespace {

class ValueConversionTest : public ConfigTest {
  protected:
    ValueConversionTest() {
        ON_CALL(mockOf<&config::Service::updateObject>(), Call)
            .WillByDefault([&](auto&, auto&, auto&, const Value* value, bool) {
                tree.reset(value == nullptr ? nullptr : value->clone());
                return Code::OK;
            });
        ON_CALL(mockOf<&Service::queryObject>(), Call).WillByDefault([&](auto&, auto&, auto&, Value** value) {
            *value = tree.get();
            return Code::OK;
        });
    }

    std::unique_ptr<Value> tree;  ///< the platform's

    /// Gives `value` to the platform, which keeps a copy.
    void send(jobject value) { askFor("_updateObject", value, true); }

    /// What the platform gives back.
    jobject fetch() { return request("_queryObject", "type", "parent", "name").result.l; }

    bool areEqual(jobject left, jobject right) {
        jmethodID equals = env->GetMethodID(env->GetObjectClass(left), "equals", "(Ljava/lang/Object;)Z");
        return env->CallBooleanMethod(left, equals, right) == JNI_TRUE;
    }
};

TEST_F(ValueConversionTest, AnyTreeComesBackEqualInTheOrderOfItsKeys) {
    int trees = 0;
    for (jlong number = 0; number < 150; ++number) {
        SCOPED_TRACE(number);
        const LocalFrame frame;
        auto* pair = static_cast<jobjectArray>(values("random", "(J)[Lcom/kvo/talvern/config/Value;", number));
        jobject expected = env->GetObjectArrayElement(pair, 1);
        if (expected == nullptr) continue;
        ++trees;
        send(env->GetObjectArrayElement(pair, 0));
        jobject back = fetch();
        EXPECT_TRUE(areEqual(expected, back));
        EXPECT_EQ(describe(back), describe(expected));  // the order, which equality does not see
    }
    EXPECT_GT(trees, 75);
}

TEST_F(ValueConversionTest, CarriesEachFlagBothWays) {
    for (const bool mu : {false, true}) {
        tree = std::make_unique<SimpleValue>("text", mu);
        jobject value = fetch();
        tree = nullptr;
        send(value);
        ASSERT_NE(tree, nullptr);
        EXPECT_EQ(tree->mu, mu);
    }
}

TEST_F(ValueConversionTest, ATreeThatContainsItselfEndsInAnException) {
    const auto tooDeep = "com.kvo.talvern.TalvernException: configuration value deeper than 1000 levels";
    ArrayValue list{false};
    list.elements.push_back(&list);
    EXPECT_CALL(mockOf<&config::Service::queryObject>(), Call)
        .WillOnce(testing::DoAll(testing::SetArgPointee<3>(&list), testing::Return(Code::OK)));
    EXPECT_EQ(fetch(), nullptr);
    EXPECT_EQ(takeThrown(), tooDeep);
    list.elements.clear();
    EXPECT_CALL(mockOf<&config::Service::updateObject>(), Call).Times(0);
    send(values("inItself", "()Lcom/kvo/talvern/config/Value;"));
    EXPECT_EQ(takeThrown(), tooDeep);
}

TEST_F(ValueConversionTest, SaysWhatIsWrongWithAJavaValue) {
    const std::string ours = "com.kvo.talvern.TalvernException: ";
    const std::string theirs = "java.lang.IllegalStateException: ";
    const std::map<const char*, std::string> faults{
        {"null text", ours + "null value text"},
        {"throwing text", theirs + "getValue"},
        {"null iterator", ours + "null iterator"},
        {"throwing iterator", theirs + "iterator"},
        {"null entry set", ours + "null entry set"},
        {"null set iterator", ours + "null iterator"},
        {"null entry", ours + "null map entry"},
        {"null key", ours + "null value key"},
        {"number as key", ours + "value key that is not a string"}};
    EXPECT_CALL(mockOf<&config::Service::updateObject>(), Call).Times(0);
    for (const auto& [fault, exception] : faults) {
        SCOPED_TRACE(fault);
        send(faulty(fault));
        EXPECT_EQ(takeThrown(), exception);
    }
}

TEST_F(ValueConversionTest, TakesNothingForWhatItIsNot) {
    // The JVM does not check what a method of an interface's type returns, and generics check nothing.
    const Texts exceptions{
        "TalvernException: entry set that is not a set",
        "TalvernException: iterator that is not an iterator",
        "TalvernException: map entry that is not an entry",
        "TalvernException: value key that is not a string",
        "NoSuchMethodError: ",  // of getMU
        "TalvernException: iterator that is not an iterator",
        "NoSuchMethodError: "};
    jobject value = nested(3);  // a structure with a list
    EXPECT_CALL(mockOf<&Service::updateObject>(), Call).Times(0);
    std::size_t call = 0;
    for (const std::string& exception : exceptions) {
        SCOPED_TRACE(exception);
        table.answer("CallObjectMethodA", call++, newObject("java/lang/Object"));
        callOn(receiver, "_updateObject", "type", "parent", "name", value, true);
        EXPECT_THAT(takeThrown(), testing::HasSubstr(exception));
    }
}

TEST_F(ValueConversionTest, GoesOnWhereAJavaMethodThrowsOutOfTurn) {
    // What has no counterpart is null; an exception of the value's own stays pending to the end.
    send(faulty("unknown kind"));
    EXPECT_EQ(describe(fetch()), "{first=good, second=null, third=good}");
    EXPECT_CALL(mockOf<&config::Service::updateObject>(), Call).Times(2);
    send(faulty("throwing next"));
    EXPECT_EQ(takeThrown(), "java.lang.IllegalStateException: next");
    send(faulty("throwing flag"));
    EXPECT_EQ(takeThrown(), "java.lang.IllegalStateException: getMU");
}

TEST_F(ValueConversionTest, ANativeValueOfUnknownKindIsNull) {
    class Unknown : public Value {
      public:
        Unknown() : Value{true} {}
        [[nodiscard]] Value* clone() const override { return new Unknown; }
    };
    auto list = std::make_unique<ArrayValue>(false);
    list->add(std::make_unique<Unknown>());
    tree = std::move(list);
    EXPECT_EQ(describe(fetch()), "[null]");
    tree = std::make_unique<Unknown>();
    EXPECT_EQ(fetch(), nullptr);
}

TEST_F(ValueConversionTest, LooksEachMemberUpOnceAndCallsInProportion) {
    const auto callsFor = [&](jint count) {
        const std::function<void()> ways[] = {[&] { send(large(count)); }, [&] { fetch(); }};
        std::size_t calls = 0;
        for (const auto& convert : ways) {
            convert();
            calls += table.calls().size();
            std::set<std::string> lookups;
            for (const JniTable::Call& made : table.calls()) {
                const bool isOfTheCode = made.detail.find("ReturnCode") != std::string::npos;
                if (!made.isLookup() || isOfTheCode) continue;
                EXPECT_TRUE(lookups.insert(made.detail).second) << made.detail;
            }
        }
        return calls;
    };
    const std::size_t small = callsFor(51), middle = callsFor(101), great = callsFor(201);
    EXPECT_EQ(great - middle, 2 * (middle - small));
}

TEST_F(ValueConversionTest, RendersTheConvertedTree) {
    EXPECT_CALL(mockOf<&config::Value::asXML>(), Call).WillOnce([](const Value& value) {
        return dynamic_cast<const StructValue&>(value).members.begin()->first;
    });
    EXPECT_EQ(callOn(faulty("unknown kind"), "_asXML").resultText, "first");
}

TEST_F(ValueConversionTest, GivesEachKeyBackAsSoonAsItsMemberIsStored) {
    table.restart();
    callOn(large(2), "_asXML");
    const auto take = "GetStringUTFChars", release = "ReleaseStringUTFChars";
    const Texts one{take, take, release, release};  // of the key and of its text
    Texts expected;
    for (int member = 0; member < 4; ++member) expected.insert(expected.end(), one.begin(), one.end());
    EXPECT_EQ(callsOf({take, release}), expected);
}

TEST_F(ValueConversionTest, RefusesToRenderAValueOfUnknownKind) {
    EXPECT_CALL(mockOf<&config::Value::asXML>(), Call).Times(0);
    EXPECT_CALL(mockOfTrace(), Call).Times(0);
    EXPECT_EQ(callOn(unknown(), "_asXML").resultText, "null");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: value could not be converted");
}

TEST_F(ValueConversionTest, ATextUsedAgainAndAgainIsCountedEachTime) {
    const std::string text(16 << 20, 'x');
    const auto tooMuch = "com.kvo.talvern.TalvernException: argument with more than 256 MiB of text";
    EXPECT_CALL(mockOf<&Service::updateObject>(), Call).WillOnce(testing::Return(Code::OK));
    send(doubled(4, text));  // sixteen times, with the keys
    EXPECT_EQ(takeThrown(), "");
    send(doubled(5, text));
    EXPECT_EQ(takeThrown(), tooMuch);

    jobjectArray texts = javaStrings(Texts(17));
    jobjectArray keys = javaStrings(Texts(17));
    jstring javaText = javaString(text);
    for (jsize i = 0; i < 17; ++i) env->SetObjectArrayElement(texts, i, javaText);
    EXPECT_EQ(ask("_setTimeServers", texts), "false");
    EXPECT_EQ(takeThrown(), tooMuch);
    EXPECT_EQ(ask("_setEthernetInterface", texts, keys), "112");
    EXPECT_EQ(takeThrown(), tooMuch);
    EXPECT_EQ(ask("_setEthernetInterface", keys, texts), "112");
    EXPECT_EQ(takeThrown(), tooMuch);
}

using LargeValueConversionTest = ValueConversionTest;

TEST_F(LargeValueConversionTest, AHundredThousandValuesGoBothWays) {
    jobject value = large(100'001);
    send(value);
    EXPECT_TRUE(areEqual(value, fetch()));
}

TEST_F(LargeValueConversionTest, FourMillionValuesAreTheLimitBothWays) {
    const auto tooMany = "com.kvo.talvern.TalvernException: configuration value with more than 4000000 values";
    ArrayValue list{false};
    list.elements.resize(3'999'999);  // children without a value count as well
    EXPECT_CALL(mockOf<&Service::queryObject>(), Call)
        .WillRepeatedly(testing::DoAll(testing::SetArgPointee<3>(&list), testing::Return(Code::OK)));
    EXPECT_CALL(mockOf<&Service::updateObject>(), Call).WillOnce(testing::Return(Code::OK));
    {
        const LocalFrame frame;
        jobject value = fetch();
        EXPECT_EQ(takeThrown(), "");
        send(value);
        EXPECT_EQ(takeThrown(), "");
        jmethodID add = env->GetMethodID(env->GetObjectClass(value), "add", "(Lcom/kvo/talvern/config/Value;)Z");
        env->CallBooleanMethod(value, add, nullptr);
        send(value);
        EXPECT_EQ(takeThrown(), tooMany);
    }
    list.elements.push_back(nullptr);
    fetch();
    EXPECT_EQ(takeThrown(), tooMany);

    // Forty objects that stand for 2^40 values.
    send(doubled(40, "innermost"));
    EXPECT_EQ(takeThrown(), tooMany);
}

}  // namespace
