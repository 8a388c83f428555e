#include "mocks/network.h"
#include "support/bridgeTest.h"

using testing::Return;

namespace {

class NodeNameTest : public BridgeTest {
  protected:
    NodeNameMock& node = mock<NodeNameMock>();
};

TEST_F(NodeNameTest, PassesTheStatusOfInitOnAndReportsAnyButZeroOfSetAsFalse) {
    for (const int status : {0, 5, -1}) {
        EXPECT_CALL(node, init).WillOnce(Return(status));
        EXPECT_CALL(node, set("rack-7")).WillOnce(Return(status));
        EXPECT_EQ(call("_initNodeName").result.i, status);
        EXPECT_EQ(call("_setNodeName", "rack-7").result.z, status == 0);
    }
}

TEST_F(NodeNameTest, GivesTheNameUpToItsFirstNul) {
    using namespace std::string_literals;
    for (const auto& [name, seen] : {std::pair{""s, ""}, {"rack\0-1"s, "rack"}}) {
        EXPECT_CALL(node, get).WillOnce(Return(name));
        EXPECT_EQ(ask("_getNodeName"), seen);
    }
}

TEST_F(NodeNameTest, NamesTheNullThatItRefuses) {
    EXPECT_EQ(ask("_setNodeName", jstring{}), "false");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: null string argument");
}

}  // namespace
