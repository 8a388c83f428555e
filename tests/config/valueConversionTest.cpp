#include <map>

#include "config/configTest.h"

using config::ArrayValue;
using config::StructValue;
using config::Value;

namespace {

const std::string ours = "com.kvo.talvern.TalvernException: ";

class ValueConversionTest : public ConfigTest {
  protected:
    ValueConversionTest() {
        ON_CALL(mockOf<&Service::updateObject>(), Call)
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
};

TEST_F(ValueConversionTest, AnyTreeComesBackEqualInTheOrderOfItsKeys) {
    jmethodID equals = env->GetMethodID(env->FindClass("java/lang/Object"), "equals", "(Ljava/lang/Object;)Z");
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
        EXPECT_EQ(env->CallBooleanMethod(expected, equals, back), JNI_TRUE);
        EXPECT_EQ(describe(back), describe(expected));  // the order, which equality does not see
    }
    EXPECT_GT(trees, 75);
}

TEST_F(ValueConversionTest, SaysWhatIsWrongWithAJavaValue) {
    const std::map<const char*, std::string> faults{
        {"null text", ours + "null value text"},
        {"null iterator", ours + "null iterator"},
        {"null entry set", ours + "null entry set"},
        {"null set iterator", ours + "null iterator"},
        {"null entry", ours + "null map entry"},
        {"null key", ours + "null value key"},
        {"number as key", ours + "value key that is not a string"},
        {"throwing next", "java.lang.IllegalStateException: next"}};
    for (const auto& [fault, exception] : faults) {
        SCOPED_TRACE(fault);
        send(faulty(fault));
        EXPECT_EQ(takeThrown(), exception);
    }
    EXPECT_EQ(platform::operationCount(), 1U) << "an iterator that throws is at its end";
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
    jobject value = values("nested", "(I)Lcom/kvo/talvern/config/Value;", 3);  // a structure with a list
    EXPECT_CALL(mockOf<&Service::updateObject>(), Call).Times(0);
    std::size_t call = 0;
    for (const std::string& exception : exceptions) {
        table.answer("CallObjectMethodA", call++, newObject("java/lang/Object"));
        send(value);
        EXPECT_THAT(takeThrown(), testing::HasSubstr(exception));
    }
}

TEST_F(ValueConversionTest, AValueOfUnknownKindIsNull) {
    class Unknown : public Value {
      public:
        Unknown() : Value{true} {}
        [[nodiscard]] Value* clone() const override { return new Unknown; }
    };
    auto list = std::make_unique<ArrayValue>(false);
    list->add(std::make_unique<Unknown>());
    tree = std::move(list);
    EXPECT_EQ(describe(fetch()), "[null]");
    send(faulty("unknown kind"));
    EXPECT_EQ(describe(fetch()), "{first=good, second=null, third=good}");
}

TEST_F(ValueConversionTest, RendersTheConvertedTree) {
    EXPECT_CALL(mockOf<&Value::asXML>(), Call).WillOnce([](const Value& value) {
        return dynamic_cast<const StructValue&>(value).members.begin()->first;
    });
    EXPECT_EQ(callOn(faulty("unknown kind"), "_asXML").resultText, "first");
    EXPECT_EQ(callOn(unknown(), "_asXML").resultText, "null");
    EXPECT_EQ(takeThrown(), ours + "value could not be converted");
}

/// Very many JNI calls, in a run of their own on a JVM that does not check each.
class LargeValueConversionTest : public ValueConversionTest {
    void SetUp() override {
        if (isJniChecked()) GTEST_SKIP();
    }
};

TEST_F(LargeValueConversionTest, ATextUsedAgainAndAgainIsCountedEachTime) {
    const std::string text(16 << 20, 'x');
    const auto tooMuch = ours + "argument with more than 256 MiB of text";
    send(doubled(4, text));  // sixteen times, with the keys
    EXPECT_EQ(takeThrown(), "");
    send(doubled(5, text));
    EXPECT_EQ(takeThrown(), tooMuch);

    jobjectArray texts = javaStrings(Texts(17));
    jobjectArray keys = javaStrings(Texts(17));
    jstring javaText = javaString(text);
    for (jsize i = 0; i < 16; ++i) env->SetObjectArrayElement(texts, i, javaText);
    env->SetObjectArrayElement(texts, 16, javaString("x"));  // a byte too much
    ask("_setTimeServers", texts);
    EXPECT_EQ(takeThrown(), tooMuch);
    ask("_setEthernetInterface", texts, keys);
    EXPECT_EQ(takeThrown(), tooMuch);
    ask("_setEthernetInterface", keys, texts);
    EXPECT_EQ(takeThrown(), tooMuch);
}

TEST_F(LargeValueConversionTest, FourMillionValuesAreTheLimitBothWays) {
    const auto tooMany = ours + "configuration value with more than 4000000 values";
    ArrayValue list{false};
    list.elements.resize(3'999'999);  // children without a value count as well
    ON_CALL(mockOf<&Service::queryObject>(), Call)
        .WillByDefault(testing::DoAll(testing::SetArgPointee<3>(&list), testing::Return(Code::OK)));
    {
        const LocalFrame frame;
        jobject value = fetch();
        EXPECT_EQ(takeThrown(), "");
        send(value);
        EXPECT_EQ(takeThrown(), "");
    }
    list.elements.push_back(nullptr);
    fetch();
    EXPECT_EQ(takeThrown(), tooMany);

    // Forty objects that stand for 2^40 values.
    send(doubled(40, "innermost"));
    EXPECT_EQ(takeThrown(), tooMany);
}

}  // namespace
