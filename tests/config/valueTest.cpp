// The native values alone.
#include <functional>
#include <gmock/gmock.h>
#include <pthread.h>

#include "config/value.h"

using namespace talvern::config;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> destroyed;
int cloned;

/// Of a class that the bridge does not know.
class Recorder : public SimpleValue {
  public:
    using SimpleValue::SimpleValue;
    ~Recorder() override { destroyed.push_back(value); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    Recorder(Recorder&&) = delete;
    Recorder& operator=(Recorder&&) = delete;

    [[nodiscard]] Value* clone() const override {
        ++cloned;
        return new Recorder{value, mu};
    }
};

std::unique_ptr<Value> recorder(const char* text) { return std::make_unique<Recorder>(text, true); }

class ValueTest : public testing::Test {
  protected:
    ValueTest() {
        destroyed.clear();
        cloned = 0;
    }

    /// Two levels of both kinds, with null children and recorders "1" to "6" in the order of destruction.
    static std::unique_ptr<StructValue> sample() {
        auto list = std::make_unique<ArrayValue>(true);
        list->add(recorder("2"));
        list->add(nullptr);
        auto inner = std::make_unique<StructValue>(false);
        inner->put("y", recorder("4"));
        inner->put("x", recorder("3"));
        list->add(std::move(inner));
        list->add(std::make_unique<ArrayValue>(false));
        list->add(recorder("5"));
        auto root = std::make_unique<StructValue>(true);
        root->put("c", recorder("6"));
        root->put("b", std::move(list));
        root->put("a", recorder("1"));
        root->put("d", nullptr);
        return root;
    }
};

TEST_F(ValueTest, DestroysInTheOrderOfKeysAndElements) {
    sample().reset();
    EXPECT_THAT(destroyed, ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST_F(ValueTest, PutReplacesAndDestroysTheEarlierChild) {
    StructValue value{false};
    value.put("a", recorder("first"));
    value.put("a", recorder("second"));
    EXPECT_THAT(destroyed, ElementsAre("first"));
    ASSERT_EQ(value.members.size(), 1U);
    EXPECT_EQ(dynamic_cast<SimpleValue*>(value.members["a"])->value, "second");
}

void expectSame(const Value* left, const Value* right) {
    ASSERT_EQ(left == nullptr, right == nullptr);
    if (left == nullptr) return;
    EXPECT_NE(left, right);
    ASSERT_EQ(typeid(*left), typeid(*right));
    EXPECT_EQ(left->mu, right->mu);
    if (const auto* simple = dynamic_cast<const SimpleValue*>(left)) {
        EXPECT_EQ(simple->value, dynamic_cast<const SimpleValue*>(right)->value);
    } else if (const auto* array = dynamic_cast<const ArrayValue*>(left)) {
        const auto& others = dynamic_cast<const ArrayValue*>(right)->elements;
        ASSERT_EQ(array->elements.size(), others.size());
        for (std::size_t i = 0; i < others.size(); ++i) expectSame(array->elements[i], others[i]);
    } else {
        const auto& members = dynamic_cast<const StructValue*>(left)->members;
        const auto& others = dynamic_cast<const StructValue*>(right)->members;
        ASSERT_EQ(members.size(), others.size());
        for (auto one = members.begin(), other = others.begin(); one != members.end(); ++one, ++other) {
            EXPECT_EQ(one->first, other->first);
            expectSame(one->second, other->second);
        }
    }
}

TEST_F(ValueTest, ClonesDeeplyAndLetsAnyOtherClassCloneItself) {
    const auto source = sample();
    std::unique_ptr<Value> copy{source->clone()};
    expectSame(source.get(), copy.get());
    EXPECT_EQ(cloned, 6);
    EXPECT_THAT(destroyed, IsEmpty());
    copy.reset();
    EXPECT_THAT(destroyed, ElementsAre("1", "2", "3", "4", "5", "6"));
    expectSame(source.get(), std::unique_ptr<Value>{source->clone()}.get());
}

/// Runs `action` on a thread with the smallest stack that Java code gets.
void onSmallStack(std::function<void()> action) {
    pthread_attr_t attributes{};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{192} * 1024);
    pthread_t thread{};
    const auto run = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// A text below 99,999 lists and structures, each with a sibling before and behind.
std::unique_ptr<Value> deepTree(const std::function<bool(int level)>& isStruct) {
    std::unique_ptr<Value> tree = std::make_unique<SimpleValue>("innermost", false);
    for (int level = 1; level < 100'000; ++level) {
        if (isStruct(level)) {
            auto outer = std::make_unique<StructValue>(false);
            outer->put("a", std::make_unique<SimpleValue>("text", false));
            outer->put("b", std::move(tree));
            outer->put("c", std::make_unique<ArrayValue>(false));
            tree = std::move(outer);
        } else {
            auto outer = std::make_unique<ArrayValue>(false);
            outer->add(nullptr);
            outer->add(std::move(tree));
            outer->add(std::make_unique<StructValue>(false));
            tree = std::move(outer);
        }
    }
    return tree;
}

TEST_F(ValueTest, CopiesAndDestroysADeepTreeOnASmallStack) {
    onSmallStack([] {
        for (const int structs : {0, 1, 2}) {  // of each two levels
            auto tree = deepTree([&](int level) { return level % 2 < structs; });
            const std::unique_ptr<Value> copy{tree->clone()};
            tree.reset();
            EXPECT_EQ(typeid(*copy), structs == 2 ? typeid(StructValue) : typeid(ArrayValue));
        }
    });
}

}  // namespace
