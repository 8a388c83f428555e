// The native values alone.
#include <functional>
#include <gmock/gmock.h>
#include <pthread.h>

#include "platform/value.h"

using namespace talvern::config;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

namespace {

std::vector<std::string> destroyed;
int cloned;

/// Of a class that the bridge does not know.
class Recorder : public SimpleValue {
  public:
    using SimpleValue::SimpleValue;
    ~Recorder() override { destroyed.push_back(value); }

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

TEST_F(ValueTest, PutReplacesAndDestroysTheEarlierChild) {
    StructValue value{false};
    value.put("a", recorder("first"));
    value.put("a", recorder("second"));
    EXPECT_THAT(destroyed, ElementsAre("first"));
    ASSERT_EQ(value.members.size(), 1U);
    EXPECT_EQ(dynamic_cast<SimpleValue*>(value.members["a"])->value, "second");
}

TEST_F(ValueTest, ClonesDeeplyAndDestroysInTheOrderOfKeysAndElements) {
    const auto inOrder = ElementsAre("1", "2", "3", "4", "5", "6");
    auto source = sample();
    std::unique_ptr<Value> copy{source->clone()};
    EXPECT_EQ(cloned, 6);
    EXPECT_THAT(std::exchange(destroyed, {}), IsEmpty());
    source.reset();
    EXPECT_THAT(std::exchange(destroyed, {}), inOrder);

    const auto& members = dynamic_cast<StructValue&>(*copy).members;
    const auto& list = dynamic_cast<ArrayValue&>(*members.at("b"));
    EXPECT_TRUE(copy->mu && list.mu && members.at("d") == nullptr);
    EXPECT_THAT(list.elements, ElementsAre(NotNull(), IsNull(), Field(&Value::mu, false),
                                           Field(&Value::mu, false), Field(&Value::mu, true)));
    copy.reset();
    EXPECT_THAT(destroyed, inOrder);
}

/// A text below 999 lists and structures, each with a sibling before and behind.
std::unique_ptr<Value> deepTree(const std::function<bool(int level)>& isStruct) {
    std::unique_ptr<Value> tree = std::make_unique<SimpleValue>("innermost", false);
    for (int level = 1; level < 1000; ++level) {
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

void* copyAndDestroyDeepTrees(void*) {
    for (const int structs : {0, 1, 2}) {  // of each two levels
        auto tree = deepTree([&](int level) { return level % 2 < structs; });
        const std::unique_ptr<Value> copy{tree->clone()};
        tree.reset();
        EXPECT_EQ(typeid(*copy), structs == 2 ? typeid(StructValue) : typeid(ArrayValue));
    }
    return nullptr;
}

TEST_F(ValueTest, CopiesAndDestroysADeepTreeOnTheSmallestStackOfJavaCode) {
    pthread_attr_t attributes{};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{192} * 1024);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, copyAndDestroyDeepTrees, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

}  // namespace
