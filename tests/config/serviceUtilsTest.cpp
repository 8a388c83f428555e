#include "config/configTest.h"

using testing::_;
using testing::DoAll;
using testing::IsEmpty;
using testing::IsNull;
using testing::Return;

namespace {

using ServiceUtilsTest = ConfigTest;

TEST_F(ServiceUtilsTest, AnswersANullValueItselfAndPassesNullForAValueOfUnknownKind) {
    EXPECT_EQ(askFor("_createObject", jobject{}, 1, true), "NULL_VALUE");
    EXPECT_EQ(askFor("_updateObject", jobject{}, true), "NULL_VALUE");
    EXPECT_EQ(request("_validateObject", "type", jobject{}).resultText, "NULL_VALUE");
    EXPECT_EQ(code(), "NULL_VALUE");
    EXPECT_EQ(platform::operationCount(), 0U);
    EXPECT_CALL(mockOf<&Service::validateObject>(), Call("type", IsNull())).WillOnce(Return(Code::IN_USE));
    EXPECT_EQ(request("_validateObject", "type", unknown()).resultText, "IN_USE");
}

TEST_F(ServiceUtilsTest, GivesTheQueriedTreeWhateverTheCode) {
    EXPECT_CALL(mockOf<&Service::queryObject>(), Call("type", "parent", "name", _))
        .WillOnce(DoAll(testing::SetArgPointee<3>(platform::sampleTree()), Return(Code::FAILED)))
        .WillOnce(Return(Code::OK));
    EXPECT_EQ(askFor("_queryObject"), "{list=[one, null, {}], text=two}");
    EXPECT_EQ(code(), "FAILED");
    EXPECT_EQ(askFor("_queryObject"), "null");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ListsNamesInOrder) {
    EXPECT_CALL(mockOf<&Service::getNamesofObject>(), Call("type", "parent", IsEmpty()))
        .WillOnce(deliver<2>(Texts{"b", "", "a"}, Code::OK))
        .WillOnce(Return(Code::OK))
        .WillOnce(deliver<2>(Texts{"b"}, Code::NOT_PERMITTED));
    for (const char* names : {"[b, , a]", "[]", "null"}) {
        EXPECT_EQ(request("_getNamesofObject", "type", "parent").resultText, names);
    }
    EXPECT_EQ(code(), "NOT_PERMITTED");
    request("_getObjectTypes");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ReadsAStateOnlyIfThereIsOne) {
    for (const auto& [returned, opState, adminState] :
         {std::tuple{Code::OK, "UP", "DISABLED"}, {Code::IN_USE, "null", "null"}}) {
        EXPECT_CALL(mockOf<&Service::getOpState>(), Call("type", "parent", "name", _))
            .WillOnce(deliver<3>(Service::OpState::UP, returned));
        EXPECT_CALL(mockOf<&Service::getAdminState>(), Call("type", "parent", "name", _))
            .WillOnce(deliver<3>(Service::AdminState::DISABLED, returned));
        EXPECT_EQ(askFor("_getOpState"), opState);
        EXPECT_EQ(askFor("_getAdminState"), adminState);
    }
    EXPECT_EQ(code(), "IN_USE");
}

TEST_F(ServiceUtilsTest, RefusesACodeWhoseNameIsNullOrUnknownToJava) {
    EXPECT_CALL(mockOf<&Service::resetObject>(), Call).WillOnce(Return(Code{10})).WillOnce(Return(Code{11}));
    EXPECT_EQ(askFor("_resetObject"), "null");
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.IllegalArgumentException: No enum constant"));
    EXPECT_EQ(askFor("_resetObject"), "null");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: null name in the platform's table");
}

}  // namespace
