#include <stdexcept>

#include "mocks/log.h"
#include "mocks/nodeName.h"
#include "support/bridgeTest.h"

using testing::Return;
using testing::StrEq;
using testing::Throw;

namespace {

constexpr auto javaClass = "appliance/NodeName";

class NodeNameTest : public BridgeTest {};

TEST_F(NodeNameTest, PassesTheStatusOfInitOn) {
    for (const int status : {0, 5, -1}) {
        EXPECT_CALL(mock<NodeNameMock>(), init).WillOnce(Return(status));
        EXPECT_EQ(call(javaClass, "_initNodeName").result.i, status);
    }
}

TEST_F(NodeNameTest, GivesTheNameUpToItsFirstNul) {
    using namespace std::string_literals;
    for (const auto& [name, seen] : {std::pair{""s, ""},
                                     {"rack-1"s, "rack-1"},
                                     {"gr\xC3\xBC\xC3\x9F"s, "grüß"},
                                     {"rack\0-1"s, "rack"}}) {
        EXPECT_CALL(mock<NodeNameMock>(), get).WillOnce(Return(name));
        EXPECT_EQ(call(javaClass, "_getNodeName").resultText, seen);
    }
}

TEST_F(NodeNameTest, SetsTheNameAndReportsAnyOtherStatusAsFalse) {
    for (const auto& [status, wasSet] : {std::pair{0, "true"}, {1, "false"}, {5, "false"}, {-1, "false"}}) {
        EXPECT_CALL(mock<NodeNameMock>(), set(StrEq("rack-7"))).WillOnce(Return(status));
        EXPECT_EQ(call(javaClass, "_setNodeName", javaString("rack-7")).resultText, wasSet);
    }
}

TEST_F(NodeNameTest, PassesTheBytesOfModifiedUtf8) {
    for (const char* name : {"", "\xC0\x80", "\xED\xA0\xBD\xED\xB8\x80", "\xE2\x82\xAC"}) {
        EXPECT_CALL(mock<NodeNameMock>(), set(StrEq(name))).WillOnce(Return(0));
        EXPECT_EQ(call(javaClass, "_setNodeName", javaString(name)).resultText, "true");
    }
}

TEST_F(NodeNameTest, RefusesANullNameWithoutAskingThePlatform) {
    EXPECT_CALL(mock<NodeNameMock>(), set).Times(0);
    EXPECT_EQ(call(javaClass, "_setNodeName", jstring{}).resultText, "false");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: null string argument");
}

TEST_F(NodeNameTest, StillThrowsWhenTheTraceLogThrows) {
    EXPECT_CALL(mock<NodeNameMock>(), get).WillOnce(Throw(std::runtime_error{"disk"}));
    EXPECT_CALL(mock<LogMock>(), line).WillOnce(Throw(std::runtime_error{"log"}));
    EXPECT_EQ(call(javaClass, "_getNodeName").resultText, "null");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
}

}  // namespace
