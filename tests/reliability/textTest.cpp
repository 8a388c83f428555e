#include "mocks/network.h"
#include "support/bridgeTest.h"

using testing::DoAll;
using testing::Return;
using testing::SaveArg;

namespace {

class TextTest : public BridgeTest {};

TEST_F(TextTest, AllCodePointsGoInAndComeBack) {
    std::string name;
    ON_CALL(mock<NodeNameMock>(), set).WillByDefault(DoAll(SaveArg<0>(&name), Return(0)));
    ON_CALL(mock<NodeNameMock>(), get).WillByDefault([&] { return name; });
    EXPECT_EQ(runJava("Texts", "firstLost"), "");
    EXPECT_EQ(name.size(), 4096U * 6);  // the last block: two surrogates of three bytes each

    ON_CALL(mock<NodeNameMock>(), get).WillByDefault([&] { return name.substr(1); });
    EXPECT_EQ(runJava("Texts", "firstLost"), "U+0000 to U+0FFF");
}

}  // namespace
