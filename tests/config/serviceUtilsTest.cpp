#include <dlfcn.h>

#include "config/configTest.h"

using testing::_;
using testing::DoAll;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::Return;
using testing::SetArgReferee;

namespace {

class ServiceUtilsTest : public ConfigTest {};

TEST_F(ServiceUtilsTest, PassesArgumentsOnAndReportsTheCode) {
    jobject value = nested(1);
    const auto state = Service::AdminState{2};
    EXPECT_CALL(service(), createObject("type", "parent", "name", NotNull(), state, true))
        .WillOnce(Return(Code::BUSY));
    EXPECT_EQ(requestFor("_createObject", value, jint{2}, true).resultText, "BUSY");
    EXPECT_EQ(code(), "BUSY");
    EXPECT_CALL(service(), updateObject("type", "parent", "name", NotNull(), false))
        .WillOnce(Return(Code::FAILED));
    EXPECT_EQ(requestFor("_updateObject", value, false).resultText, "FAILED");
    EXPECT_CALL(service(), validateObject("type", NotNull())).WillOnce(Return(Code::INVALID_TYPE));
    EXPECT_EQ(request("_validateObject", javaString("type"), value).resultText, "INVALID_TYPE");
    EXPECT_CALL(service(), deleteObject("type", "parent", "name")).WillOnce(Return(Code::IN_USE));
    EXPECT_EQ(requestFor("_deleteObject").resultText, "IN_USE");
    EXPECT_CALL(service(), resetObject("type", "parent", "name")).WillOnce(Return(Code::NOT_FOUND));
    EXPECT_EQ(requestFor("_resetObject").resultText, "NOT_FOUND");
    EXPECT_EQ(code(), "NOT_FOUND");
}

TEST_F(ServiceUtilsTest, TakesANullStringForAnEmptyOne) {
    EXPECT_CALL(service(), deleteObject("type", "", "name"));
    request("_deleteObject", javaString("type"), jstring{}, javaString("name"));
    EXPECT_EQ(callsOf({"GetStringUTFChars"}).size(), 2U);
    EXPECT_EQ(callsOf({"ReleaseStringUTFChars"}).size(), 2U);
    EXPECT_CALL(service(), getAdminState("", "parent", "name", _));
    request("_getAdminState", jstring{}, javaString("parent"), javaString("name"));
}

TEST_F(ServiceUtilsTest, AnswersANullValueItself) {
    EXPECT_EQ(requestFor("_createObject", jobject{}, jint{1}, true).resultText, "NULL_VALUE");
    EXPECT_EQ(requestFor("_updateObject", jobject{}, true).resultText, "NULL_VALUE");
    EXPECT_EQ(callsOf({"ReleaseStringUTFChars"}).size(), 3U);
    EXPECT_EQ(request("_validateObject", javaString("type"), jobject{}).resultText, "NULL_VALUE");
    EXPECT_EQ(code(), "NULL_VALUE");
    EXPECT_EQ(platform::mocks().operationCount(), 0U);
}

TEST_F(ServiceUtilsTest, PassesNullForAValueOfUnknownKind) {
    EXPECT_CALL(service(), validateObject("type", IsNull())).WillOnce(Return(Code::NULL_VALUE));
    EXPECT_EQ(request("_validateObject", javaString("type"), unknown()).resultText, "NULL_VALUE");
}

TEST_F(ServiceUtilsTest, StoresTheCodeThenReleasesThenConvertsTheCode) {
    const std::vector<std::string_view> steps{"GetStringUTFChars", "CallVoidMethodA", "ReleaseStringUTFChars",
                                              "CallStaticObjectMethodA"};
    const auto get = "GetStringUTFChars", store = "CallVoidMethodA", release = "ReleaseStringUTFChars",
               convert = "CallStaticObjectMethodA";
    requestFor("_deleteObject");
    EXPECT_THAT(callsOf(steps),
                ElementsAre(get, get, get, convert, store, release, release, release, convert));
    requestFor("_updateObject", jobject{}, true);
    EXPECT_THAT(callsOf(steps),
                ElementsAre(get, get, get, convert, store, release, release, release, convert));
    requestFor("_updateObject", nested(1), true);
    EXPECT_THAT(callsOf(steps),
                ElementsAre(get, get, get, get, release, convert, store, release, release, release, convert));
    requestFor("_getOpState");
    EXPECT_THAT(callsOf(steps),
                ElementsAre(get, get, get, convert, store, release, release, release, convert));
    request("_getNamesofObject", javaString("type"), javaString("parent"));
    EXPECT_THAT(callsOf(steps), ElementsAre(get, get, convert, store, release, release));
    requestFor("_queryObject");
    EXPECT_THAT(callsOf({"CallVoidMethodA", "ReleaseStringUTFChars", "CallBooleanMethodA"}),
                ElementsAre(store, "CallBooleanMethodA", "CallBooleanMethodA", "CallBooleanMethodA", release,
                            release, release));
}

TEST_F(ServiceUtilsTest, GivesTheQueriedTreeWhateverTheCode) {
    EXPECT_CALL(service(), queryObject("type", "parent", "name", _))
        .WillOnce(DoAll([this](auto&, auto&, auto&, auto** tree) { *tree = service().tree.get(); },
                        Return(Code::FAILED)))
        .WillOnce(Return(Code::OK));
    EXPECT_EQ(requestFor("_queryObject").resultText, "{list=[one, null, {}], text=two}");
    EXPECT_EQ(code(), "FAILED");
    EXPECT_EQ(requestFor("_queryObject").resultText, "null");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ListsNamesAndTypesInOrder) {
    EXPECT_CALL(service(), getNamesofObject("type", "parent", IsEmpty()))
        .WillOnce(DoAll(SetArgReferee<2>(std::vector<std::string>{"b", "", "a"}), Return(Code::OK)))
        .WillOnce(Return(Code::OK))
        .WillOnce(DoAll(SetArgReferee<2>(std::vector<std::string>{"b"}), Return(Code{4})));
    const auto names = [&] {
        return request("_getNamesofObject", javaString("type"), javaString("parent")).resultText;
    };
    EXPECT_EQ(names(), "[b, , a]");
    EXPECT_EQ(names(), "[]");
    EXPECT_EQ(names(), "null");
    EXPECT_EQ(code(), "NOT_PERMITTED");
    EXPECT_CALL(service(), getObjectTypes).WillOnce(Return(std::vector<std::string>{"y", "x"}));
    EXPECT_EQ(request("_getObjectTypes").resultText, "[y, x]");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, ReadsAStateOnlyIfThereIsOne) {
    EXPECT_CALL(service(), getOpState("type", "parent", "name", _))
        .WillOnce(DoAll(SetArgReferee<3>(Service::OpState{1}), Return(Code::OK)))
        .WillOnce(DoAll(SetArgReferee<3>(Service::OpState{1}), Return(Code{3})));
    EXPECT_EQ(requestFor("_getOpState").resultText, "UP");
    EXPECT_EQ(code(), "OK");
    EXPECT_EQ(requestFor("_getOpState").resultText, "null");
    EXPECT_EQ(code(), "ALREADY_EXISTS");
    EXPECT_CALL(service(), getAdminState("type", "parent", "name", _))
        .WillOnce(DoAll(SetArgReferee<3>(Service::AdminState{2}), Return(Code::OK)))
        .WillOnce(DoAll(SetArgReferee<3>(Service::AdminState{2}), Return(Code{3})));
    EXPECT_EQ(requestFor("_getAdminState").resultText, "DISABLED");
    EXPECT_EQ(requestFor("_getAdminState").resultText, "null");
}

TEST_F(ServiceUtilsTest, TakesAStateByItsNumberAfterTheStrings) {
    jclass javaClass = env->FindClass("com/kvo/talvern/testing/Numbered");
    jobject state = env->NewObject(javaClass, env->GetMethodID(javaClass, "<init>", "()V"));
    EXPECT_CALL(service(), setOpState("type", "parent", "name", Service::OpState{4}))
        .WillOnce(Return(Code::FAILED));
    EXPECT_EQ(requestFor("_setOpState", state).resultText, "FAILED");
    EXPECT_THAT(callsOf({"GetStringUTFChars", "CallIntMethodA"}),
                ElementsAre("GetStringUTFChars", "GetStringUTFChars", "GetStringUTFChars", "CallIntMethodA"));
    EXPECT_CALL(service(), setAdminState("type", "parent", "name", Service::AdminState{4}))
        .WillOnce(Return(Code::OK));
    EXPECT_EQ(requestFor("_setAdminState", state).resultText, "OK");
    EXPECT_EQ(code(), "OK");
}

TEST_F(ServiceUtilsTest, LetsJavaReportANameThatItLacks) {
    EXPECT_CALL(service(), resetObject).WillOnce(Return(Code{10}));
    EXPECT_EQ(requestFor("_resetObject").resultText, "null");
    EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.IllegalArgumentException: No enum constant"));
}

TEST_F(ServiceUtilsTest, ExportsTheConversions) {
    void* bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
    const auto symbol = [&](const char* name) { return dlsym(bridge, name); };
    using Convert = jobject (*)(JNIEnv*, std::int32_t);
    const auto convert = [&](const char* name, std::int32_t value) {
        return describe(reinterpret_cast<Convert>(symbol(name))(env, value));
    };
    EXPECT_EQ(convert("_Z14convertOpStateP7JNIEnv_N7talvern6config7Service7OpStateE", 3), "PENDING");
    EXPECT_EQ(convert("_Z17convertAdminStateP7JNIEnv_N7talvern6config7Service10AdminStateE", 1), "ENABLED");
    EXPECT_EQ(convert("_Z17convertReturnCodeP7JNIEnv_N7talvern6config7Service10ReturnCodeE", 0), "OK");
    using SetCode = void (*)(JNIEnv*, jobject, std::int32_t);
    auto* setCode = symbol("_Z13setReturnCodeP7JNIEnv_P8_jobjectN7talvern6config7Service10ReturnCodeE");
    reinterpret_cast<SetCode>(setCode)(env, receiver, 9);
    EXPECT_EQ(code(), "NULL_VALUE");
}

}  // namespace
