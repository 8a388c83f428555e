// The translation of native exceptions, through the exported functions of the bridge.
#include <dlfcn.h>

#include "bridge/handleException.h"
#include "support/bridgeTest.h"

using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;
using testing::InSequence;

namespace {

class HandleExceptionTest : public BridgeTest {
  protected:
    /// Calls the overload of the bridge that takes these exceptions; `symbol` is its mangled name.
    template <typename... Exception>
    bool handle(const char* symbol, const Exception&... exception) {
        static void* const bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
        auto* function = reinterpret_cast<bool (*)(JNIEnv*, const Exception&...)>(dlsym(bridge, symbol));
        return function(env, exception...);
    }

    static constexpr auto ofUnknown = "_Z15handleExceptionP7JNIEnv_";
    static constexpr auto ofStandard = "_Z15handleExceptionP7JNIEnv_RKSt9exception";
    static constexpr auto ofValidation =
        "_Z15handleExceptionP7JNIEnv_RKN7talvern6config9messaging19ValidationExceptionE";
    static constexpr auto ofConfigChange =
        "_Z15handleExceptionP7JNIEnv_RKN7talvern6config9messaging21ConfigChangeExceptionE";
};

TEST_F(HandleExceptionTest, TracesAndThrowsTheTwoGeneralKinds) {
    const InSequence inOrder;
    EXPECT_CALL(mockOfTrace(), Call(3, "Unknown exception caught in libtalvern JNI"));
    EXPECT_CALL(mockOfTrace(), Call(3, "Exception caught in libtalvern JNI: 100%s of %n"));

    EXPECT_TRUE(handle(ofUnknown));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: Unknown native exception");
    EXPECT_TRUE(handle(ofStandard, std::runtime_error{"100%s of %n"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: 100%s of %n");
}

TEST_F(HandleExceptionTest, HasATextForAnExceptionWithout) {
    struct Wordless : std::exception {
        [[nodiscard]] const char* what() const noexcept override { return nullptr; }
    };
    EXPECT_CALL(mockOfTrace(), Call(3, "Exception caught in libtalvern JNI: Unknown native exception"));
    EXPECT_TRUE(handle<std::exception>(ofStandard, Wordless{}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: Unknown native exception");
}

TEST_F(HandleExceptionTest, GivesAValidationExceptionBothTextsAndTwoTraceLines) {
    const InSequence inOrder;
    EXPECT_CALL(mockOfTrace(), Call(3, "ValidationException caught in libtalvern JNI: validation failed"));
    EXPECT_CALL(mockOfTrace(), Call(3, "Throwing Java ValidationException in libtalvern JNI\n"));

    EXPECT_TRUE(handle(ofValidation, ValidationException{"mtu", "too large"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.config.ValidationException: mtu: too large");
}

TEST_F(HandleExceptionTest, GivesAConfigChangeExceptionItsListInOrder) {
    EXPECT_CALL(mockOfTrace(), Call(3, "ConfigChangeException caught in libtalvern JNI: change failed")).Times(2);

    for (const Texts& texts : {Texts{}, Texts{"a", "", "b"}}) {
        EXPECT_TRUE(handle(ofConfigChange, ConfigChangeException{7, "t", texts}));
        jthrowable thrown = env->ExceptionOccurred();
        EXPECT_EQ(takeException(env), "com.kvo.talvern.config.ConfigChangeException: t");
        jmethodID getCode = env->GetMethodID(env->GetObjectClass(thrown), "getCode", "()I");
        EXPECT_EQ(env->CallIntMethod(thrown, getCode), 7);
        jobject details = callMethod(thrown, "getDetails", "()Ljava/util/List;");
        EXPECT_EQ(describe(details), texts.empty() ? "[]" : "[a, , b]");
    }
}

TEST_F(HandleExceptionTest, DiscardsThePendingExceptionForTheTranslatedOne) {
    env->ThrowNew(env->FindClass("java/lang/IllegalStateException"), "earlier");
    table.restart();
    EXPECT_TRUE(handle(ofStandard, std::runtime_error{"later"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: later");
    // This JVM would let the new exception take the place of the old; others need not.
    const Texts steps{"ExceptionDescribe", "ExceptionClear", "FindClass", "ThrowNew"};
    EXPECT_EQ(callsOf(steps), steps);
}

TEST_F(HandleExceptionTest, SaysThatItHasThrownNothingWhereTheJvmFails) {
    const std::string missing = "java.lang.NoClassDefFoundError: com/kvo/talvern/";
    const auto expectNothing = [&](std::size_t failingCall, const auto& handleIt, const std::string& error) {
        table.restart();
        table.failCall(failingCall);
        EXPECT_FALSE(handleIt());
        EXPECT_EQ(takeException(env), error);
    };
    const auto validation = [&] { return handle(ofValidation, ValidationException{"a", "b"}); };
    expectNothing(3, validation, missing + "config/ValidationException");
    expectNothing(4, validation, "java.lang.NoSuchMethodError: <init>");
    expectNothing(5, validation, "java.lang.OutOfMemoryError: planted");  // a text
    expectNothing(7, validation, "java.lang.OutOfMemoryError: planted");  // the exception
    const auto standard = [&] { return handle(ofStandard, std::runtime_error{"text"}); };
    expectNothing(3, standard, missing + "TalvernException");
}

}  // namespace
