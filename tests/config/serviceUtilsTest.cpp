#include <dlfcn.h>

#include "config/configTest.h"

using testing::_;
using testing::DoAll;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::Return;

namespace {

class ServiceUtilsTest : public ConfigTest {};

TEST_F(ServiceUtilsTest, PassesArgumentsOnAndReportsTheCode) {
    const auto state = Service::AdminState{2};
    EXPECT_CALL(mockOf<&config::Service::createObject>(), Call("type", "parent", "name", NotNull(), state, true))
        .WillOnce(Return(Code::BUSY));
    EXPECT_EQ(askFor("_createObject", nested(1), 2, true), "BUSY");
    EXPECT_EQ(code(), "BUSY");
    EXPECT_CALL(mockOf<&config::Service::updateObject>(), Call("type", "parent", "name", NotNull(), false))
        .WillOnce(Return(Code::FAILED));
    EXPECT_EQ(askFor("_updateObject", nested(1), false), "FAILED");
    EXPECT_CALL(mockOf<&config::Service::validateObject>(), Call("type", NotNull()))
        .WillOnce(Return(Code::INVALID_TYPE));
    EXPECT_EQ(request("_validateObject", "type", nested(1)).resultText, "INVALID_TYPE");
    EXPECT_CALL(mockOf<&config::Service::deleteObject>(), Call("type", "parent", "name"))
        .WillOnce(Return(Code::IN_USE));
    EXPECT_EQ(askFor("_deleteObject"), "IN_USE");
    EXPECT_CALL(mockOf<&config::Service::resetObject>(), Call("type", "parent", "name"))
        .WillOnce(Return(Code::NOT_FOUND));
    EXPECT_EQ(askFor("_resetObject"), "NOT_FOUND");
    EXPECT_EQ(code(), "NOT_FOUND");
}

TEST_F(ServiceUtilsTest, TakesANullStringForAnEmptyOne) {
    EXPECT_CALL(mockOf<&config::Service::deleteObject>(), Call("type", "", "name"));
    request("_deleteObject", "type", jstring{}, "name");
    EXPECT_CALL(mockOf<&config::Service::getAdminState>(), Call("", "parent", "name", _));
    request("_getAdminState", jstring{}, "parent", "name");
}

TEST_F(ServiceUtilsTest, AnswersANullValueItselfAndPassesNullForAValueOfUnknownKind) {
    EXPECT_EQ(askFor("_createObject", jobject{}, 1, true), "NULL_VALUE");
    EXPECT_EQ(askFor("_updateObject", jobject{}, true), "NULL_VALUE");
    EXPECT_EQ(request("_validateObject", "type", jobject{}).resultText, "NULL_VALUE");
    EXPECT_EQ(code(), "NULL_VALUE");
    EXPECT_EQ(platform::operationCount(), 0U);
    EXPECT_CALL(mockOf<&config::Service::validateObject>(), Call("type", IsNull())).WillOnce(Return(Code::IN_USE));
    EXPECT_EQ(request("_validateObject", "type", unknown()).resultText, "IN_USE");
}

TEST_F(ServiceUtilsTest, GivesTheQueriedTreeWhateverTheCode) {
    EXPECT_CALL(mockOf<&config::Service::queryObject>(), Call("type", "parent", "name", _))
        .WillOnce(
            DoAll([&](auto&, auto&, auto&, auto** tree) { *tree = platform::sampleTree(); }, Return(Code::FAILED)))
        .WillOnce(Return(Code::OK));
    EXPECT_EQ(askFor("_queryObject"), "{list=[one, null, {}], text=two}");
    EXPECT_EQ(code(), "FAILED");
    EXPECT_EQ(askFor("_queryObject"), "null");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ListsNamesAndTypesInOrder) {
    EXPECT_CALL(mockOf<&config::Service::getNamesofObject>(), Call("type", "parent", IsEmpty()))
        .WillOnce(deliver<2>(Texts{"b", "", "a"}, Code::OK))
        .WillOnce(Return(Code::OK))
        .WillOnce(deliver<2>(Texts{"b"}, Code::NOT_PERMITTED));
    for (const char* names : {"[b, , a]", "[]", "null"}) {
        EXPECT_EQ(request("_getNamesofObject", "type", "parent").resultText, names);
    }
    EXPECT_EQ(code(), "NOT_PERMITTED");
    EXPECT_CALL(mockOf<&config::Service::getObjectTypes>(), Call).WillOnce(Return(Texts{"y", "x"}));
    EXPECT_EQ(request("_getObjectTypes").resultText, "[y, x]");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ReadsAStateOnlyIfThereIsOne) {
    EXPECT_CALL(mockOf<&config::Service::getOpState>(), Call("type", "parent", "name", _))
        .WillOnce(deliver<3>(Service::OpState::UP, Code::OK))
        .WillOnce(deliver<3>(Service::OpState::UP, Code::IN_USE));
    EXPECT_CALL(mockOf<&config::Service::getAdminState>(), Call("type", "parent", "name", _))
        .WillOnce(deliver<3>(Service::AdminState::DISABLED, Code::OK))
        .WillOnce(deliver<3>(Service::AdminState::DISABLED, Code::BUSY));
    EXPECT_EQ(askFor("_getOpState"), "UP");
    EXPECT_EQ(askFor("_getAdminState"), "DISABLED");
    EXPECT_EQ(code(), "OK");
    EXPECT_EQ(askFor("_getOpState"), "null");
    EXPECT_EQ(code(), "IN_USE");
    EXPECT_EQ(askFor("_getAdminState"), "null");
    EXPECT_EQ(code(), "BUSY");
}

TEST_F(ServiceUtilsTest, TakesAStateByItsNumber) {
    jobject state = newObject("com/kvo/talvern/testing/Numbered");
    EXPECT_CALL(mockOf<&config::Service::setOpState>(), Call("type", "parent", "name", Service::OpState{4}))
        .WillOnce(Return(Code::FAILED));
    EXPECT_EQ(askFor("_setOpState", state), "FAILED");
    EXPECT_CALL(mockOf<&config::Service::setAdminState>(), Call("type", "parent", "name", Service::AdminState{4}))
        .WillOnce(Return(Code::OK));
    EXPECT_EQ(askFor("_setAdminState", state), "OK");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, RefusesACodeWhoseNameIsNullOrUnknownToJava) {
    EXPECT_CALL(mockOf<&config::Service::resetObject>(), Call).WillOnce(Return(Code{10})).WillOnce(Return(Code{11}));
    EXPECT_EQ(askFor("_resetObject"), "null");
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.IllegalArgumentException: No enum constant"));
    EXPECT_EQ(askFor("_resetObject"), "null");
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: null name in the platform's table");
}

TEST_F(ServiceUtilsTest, ExportsTheConversions) {
    void* bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
    const auto convert = [&](const char* name, std::int32_t value) {
        using Convert = jobject (*)(JNIEnv*, std::int32_t);
        return describe(reinterpret_cast<Convert>(dlsym(bridge, name))(env, value));
    };
    EXPECT_EQ(convert("_Z14convertOpStateP7JNIEnv_N7talvern6config7Service7OpStateE", 3), "PENDING");
    EXPECT_EQ(convert("_Z17convertAdminStateP7JNIEnv_N7talvern6config7Service10AdminStateE", 1), "ENABLED");
    EXPECT_EQ(convert("_Z17convertReturnCodeP7JNIEnv_N7talvern6config7Service10ReturnCodeE", 0), "OK");
    const auto setCode = "_Z13setReturnCodeP7JNIEnv_P8_jobjectN7talvern6config7Service10ReturnCodeE";
    reinterpret_cast<void (*)(JNIEnv*, jobject, std::int32_t)>(dlsym(bridge, setCode))(env, receiver, 9);
    EXPECT_EQ(code(), "NULL_VALUE");
}

}  // namespace
