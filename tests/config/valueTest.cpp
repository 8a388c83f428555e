// The native values alone.
#include <gmock/gmock.h>

#include "platform/value.h"

using namespace talvern::config;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

namespace {

std::vector<std::string> destroyed;

/// Of a class that the bridge does not know.
class Recorder : public SimpleValue {
  public:
    using SimpleValue::SimpleValue;
    ~Recorder() override { destroyed.push_back(value); }
    [[nodiscard]] Value* clone() const override { return new Recorder{value, mu}; }
};

std::unique_ptr<Value> recorder(const char* text) { return std::make_unique<Recorder>(text, true); }

TEST(ValueTest, PutReplacesAndDestroysTheEarlierChild) {
    StructValue value{false};
    value.put("a", recorder("first"));
    destroyed.clear();
    value.put("a", recorder("second"));
    EXPECT_THAT(destroyed, ElementsAre("first"));
    ASSERT_EQ(value.members.size(), 1U);
    EXPECT_EQ(dynamic_cast<SimpleValue*>(value.members["a"])->value, "second");
}

TEST(ValueTest, ClonesDeeplyAndDestroysInTheOrderOfKeysAndElements) {
    const auto inOrder = ElementsAre("1", "2", "3", "4");
    auto list = std::make_unique<ArrayValue>(true);
    list->add(recorder("2"));
    list->add(nullptr);
    list->add(std::make_unique<StructValue>(false));
    list->add(recorder("3"));
    auto source = std::make_unique<StructValue>(true);
    source->put("c", recorder("4"));
    source->put("b", std::move(list));
    source->put("a", recorder("1"));
    source->put("d", nullptr);

    destroyed.clear();
    std::unique_ptr<Value> copy{source->clone()};
    EXPECT_THAT(destroyed, IsEmpty());
    source.reset();
    EXPECT_THAT(std::exchange(destroyed, {}), inOrder);
    const auto& members = dynamic_cast<StructValue&>(*copy).members;
    const auto& copiedList = dynamic_cast<ArrayValue&>(*members.at("b"));
    EXPECT_TRUE(copy->mu && copiedList.mu && members.at("d") == nullptr);
    EXPECT_THAT(
        copiedList.elements, ElementsAre(NotNull(), IsNull(), Field(&Value::mu, false), Field(&Value::mu, true)));
    copy.reset();
    EXPECT_THAT(destroyed, inOrder);
}

}  // namespace
