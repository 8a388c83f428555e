#include <map>
#include <set>

#include "config/configTest.h"
#include "mocks/log.h"

using talvern::config::ArrayValue;
using talvern::config::SimpleValue;
using talvern::config::StructValue;
using talvern::config::Value;
using testing::_;
using testing::DoAll;
using testing::Return;

namespace {

class ValueConversionTest : public ConfigTest {
  protected:
    ValueConversionTest() {
        ON_CALL(service(), updateObject)
            .WillByDefault(
                DoAll([this](auto&, auto&, auto&, const Value* value,
                             bool) { service().tree.reset(value == nullptr ? nullptr : value->clone()); },
                      Return(Code::OK)));
    }

    /// Gives `value` to the platform, which keeps a copy.
    void send(jobject value) { requestFor("_updateObject", value, true); }

    /// What the platform gives back.
    jobject fetch() { return requestFor("_queryObject").result.l; }

    static constexpr auto tooDeep =
        "com.kvo.talvern.TalvernException: configuration value deeper than 1000 levels";
};

TEST_F(ValueConversionTest, AnyTreeComesBackEqualInTheOrderOfItsKeys) {
    int trees = 0;
    for (jlong number = 0; number < 150; ++number) {
        SCOPED_TRACE(number);
        env->PushLocalFrame(1000);
        auto* pair =
            static_cast<jobjectArray>(values("random", "(J)[Lcom/kvo/talvern/config/Value;", number));
        jobject sent = env->GetObjectArrayElement(pair, 0);
        jobject expected = env->GetObjectArrayElement(pair, 1);
        if (sent != nullptr) {
            ++trees;
            send(sent);
            jobject back = fetch();
            EXPECT_TRUE(areEqual(back, expected));
            EXPECT_EQ(describe(back), describe(expected));  // the order, which equality does not see
        }
        env->PopLocalFrame(nullptr);
    }
    EXPECT_GT(trees, 75);
}

TEST_F(ValueConversionTest, CarriesEachFlagBothWays) {
    for (const bool mu : {false, true}) {
        service().tree = std::make_unique<SimpleValue>("text", mu);
        jobject value = fetch();
        service().tree = nullptr;
        send(value);
        ASSERT_NE(service().tree, nullptr);
        EXPECT_EQ(service().tree->mu, mu);
        EXPECT_EQ(dynamic_cast<SimpleValue*>(service().tree.get())->value, "text");
    }
}

TEST_F(ValueConversionTest, ANativeTreeThatContainsItselfEndsInAnException) {
    ArrayValue list{false};
    list.elements.push_back(&list);
    EXPECT_CALL(service(), queryObject)
        .WillOnce(DoAll([&](auto&, auto&, auto&, Value** value) { *value = &list; }, Return(Code::OK)));
    EXPECT_EQ(fetch(), nullptr);
    EXPECT_EQ(takeThrown(), tooDeep);
    list.elements.clear();
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
    EXPECT_CALL(service(), updateObject).Times(0);
    for (const auto& [fault, exception] : faults) {
        SCOPED_TRACE(fault);
        send(faulty(fault));
        EXPECT_EQ(takeThrown(), exception);
    }
}

TEST_F(ValueConversionTest, GoesOnWhereAJavaMethodThrowsOutOfTurn) {
    // What has no counterpart is null; an exception of the value's own stays pending to the end.
    send(faulty("unknown kind"));
    EXPECT_EQ(describe(fetch()), "{first=good, second=null, third=good}");
    EXPECT_CALL(service(), updateObject).Times(2);
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
    service().tree = std::move(list);
    EXPECT_EQ(describe(fetch()), "[null]");
    service().tree = std::make_unique<Unknown>();
    EXPECT_EQ(fetch(), nullptr);
}

TEST_F(ValueConversionTest, LooksEachMemberUpOnceAndCallsInProportion) {
    const auto callsFor = [&](jint count) {
        env->PushLocalFrame(1000);
        std::size_t calls = 0;
        for (const bool toJava : {false, true}) {
            if (toJava) {
                fetch();
            } else {
                send(large(count));
            }
            calls += table.calls().size();
            std::set<std::string> lookups;
            for (const JniTable::Call& call : table.calls()) {
                const bool ofTheCode = call.detail.find("ReturnCode") != std::string::npos;
                if (call.detail.empty() || ofTheCode) continue;
                EXPECT_TRUE(lookups.insert(call.detail).second) << call.detail;
            }
        }
        env->PopLocalFrame(nullptr);
        return calls;
    };
    const std::size_t small = callsFor(51), middle = callsFor(101), great = callsFor(201);
    EXPECT_EQ(great - middle, 2 * (middle - small));
}

TEST_F(ValueConversionTest, RendersTheConvertedTree) {
    EXPECT_CALL(service(), asXML).WillOnce([](const Value& value) {
        return dynamic_cast<const StructValue&>(value).members.begin()->first;
    });
    EXPECT_EQ(callOn(faulty("unknown kind"), "config/Value", "_asXML").resultText, "first");
}

TEST_F(ValueConversionTest, GivesEachKeyBackAsSoonAsItsMemberIsStored) {
    table.restart();
    callOn(large(2), "config/Value", "_asXML");
    std::vector<std::string> expected;
    for (int member = 0; member < 4; ++member) {
        for (const char* function : {"GetStringUTFChars", "ReleaseStringUTFChars"}) {
            expected.insert(expected.end(), 2, function);  // of the key and of its text
        }
    }
    EXPECT_EQ(callsOf({"GetStringUTFChars", "ReleaseStringUTFChars"}), expected);
}

TEST_F(ValueConversionTest, RefusesToRenderAValueOfUnknownKind) {
    EXPECT_CALL(service(), asXML).Times(0);
    EXPECT_CALL(mock<LogMock>(), line).Times(0);
    EXPECT_EQ(callOn(unknown(), "config/Value", "_asXML").resultText, "null");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: value could not be converted");
}

using LargeValueConversionTest = ValueConversionTest;

TEST_F(LargeValueConversionTest, RefusesTreesDeeperThanAThousandLevels) {
    send(nested(1000));
    EXPECT_EQ(takeThrown(), "");
    EXPECT_TRUE(areEqual(fetch(), nested(1000)));
    auto deeper = std::make_unique<ArrayValue>(false);
    deeper->add(std::move(service().tree));
    service().tree = std::move(deeper);
    EXPECT_EQ(fetch(), nullptr);
    EXPECT_EQ(takeThrown(), tooDeep);

    EXPECT_CALL(service(), updateObject).Times(0);
    for (jobject value : {nested(1001), values("inItself", "()Lcom/kvo/talvern/config/Value;")}) {
        send(value);
        EXPECT_EQ(takeThrown(), tooDeep);
    }
}

TEST_F(LargeValueConversionTest, AHundredThousandValuesGoBothWays) {
    jobject value = large(100'001);
    send(value);
    EXPECT_TRUE(areEqual(fetch(), value));
}

}  // namespace
