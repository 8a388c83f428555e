// Deep trees on small stacks, which end a JVM if native code recurses.
#include "platform/configService.h"
#include "support/bridgeTest.h"

using namespace talvern;
using config::ArrayValue;
using config::Service;
using config::SimpleValue;
using config::StructValue;
using config::Value;

namespace {

std::unique_ptr<Value> deepTree(int levels) {
    std::unique_ptr<Value> tree = std::make_unique<SimpleValue>("end", false);
    for (int level = 1; level < levels; ++level) {
        if (level % 2 == 0) {
            auto parent = std::make_unique<StructValue>(true);
            parent->put("key", std::move(tree));
            tree = std::move(parent);
        } else {
            auto parent = std::make_unique<ArrayValue>(true);
            parent->add(std::move(tree));
            tree = std::move(parent);
        }
    }
    return tree;
}

class LargeDepthTest : public LargeTest {};

TEST_F(LargeDepthTest, AnyDepthOnAnyStackGivesAResultOrAClearException) {
    std::unique_ptr<Value> handedOut;
    ON_CALL(mockOf<&config::Service::queryObject>(), Call)
        .WillByDefault([&](const std::string& levels, const auto&, const auto&, Value** tree) {
            handedOut = deepTree(std::stoi(levels));
            *tree = handedOut.get();
            return Service::ReturnCode{};
        });
    EXPECT_EQ(runJava("Depth", "surprises"), "");
}

}  // namespace
