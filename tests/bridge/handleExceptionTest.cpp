// The translation of native exceptions, through the exported functions of the bridge.
#include <dlfcn.h>
#include <typeinfo>

#include "bridge/handleException.h"
#include "support/bridgeTest.h"

using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;
using testing::ElementsAre;

namespace {

class HandleExceptionTest : public BridgeTest {
  protected:
    /// Calls the overload of the bridge that takes this exception, or none.
    template <typename... Exception>
    bool handle(const Exception&... exception) {
        static void* const bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
        const std::string symbol =
            ("_Z15handleExceptionP7JNIEnv_" + ... + ("RK" + std::string{typeid(Exception).name()}));
        auto* function = reinterpret_cast<bool (*)(JNIEnv*, const Exception&...)>(dlsym(bridge, symbol.c_str()));
        return function(env, exception...);
    }
};

TEST_F(HandleExceptionTest, TracesAndThrowsEachKind) {
    struct Wordless : std::exception {
        [[nodiscard]] const char* what() const noexcept override { return nullptr; }
    };
    const testing::InSequence inOrder;
    const auto trace = [](const std::string& line) { EXPECT_CALL(mockOfTrace(), Call(3, line)); };
    trace("Unknown exception caught in libtalvern JNI");
    EXPECT_TRUE(handle());
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: Unknown native exception");
    trace("Exception caught in libtalvern JNI: 100%s of %n");
    EXPECT_TRUE(handle<std::exception>(std::runtime_error{"100%s of %n"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: 100%s of %n");
    trace("Exception caught in libtalvern JNI: Unknown native exception");
    EXPECT_TRUE(handle<std::exception>(Wordless{}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: Unknown native exception");
    trace("ValidationException caught in libtalvern JNI: validation failed");
    trace("Throwing Java ValidationException in libtalvern JNI\n");
    EXPECT_TRUE(handle(ValidationException{"mtu", "too large"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.config.ValidationException: mtu: too large");
    trace("ConfigChangeException caught in libtalvern JNI: change failed");
    EXPECT_TRUE(handle(ConfigChangeException{7, "t", {"a", "", "b"}}));
    jthrowable thrown = env->ExceptionOccurred();
    EXPECT_EQ(takeException(env), "com.kvo.talvern.config.ConfigChangeException: t");
    jmethodID getCode = env->GetMethodID(env->GetObjectClass(thrown), "getCode", "()I");
    EXPECT_EQ(env->CallIntMethod(thrown, getCode), 7);
    EXPECT_EQ(describe(callMethod(thrown, "getDetails", "()Ljava/util/List;")), "[a, , b]");
}

TEST_F(HandleExceptionTest, DiscardsThePendingExceptionForTheTranslatedOne) {
    env->ThrowNew(env->FindClass("java/lang/IllegalStateException"), "earlier");
    table.restart();
    EXPECT_TRUE(handle<std::exception>(std::runtime_error{"later"}));
    EXPECT_EQ(takeException(env), "com.kvo.talvern.TalvernException: later");
    // This JVM would let the new exception take the place of the old; others need not.
    const auto is = [](const char* function) {
        return testing::Field(&JniTable::Call::function, testing::StrEq(function));
    };
    EXPECT_THAT(
        table.calls(),
        ElementsAre(is("trace"), is("ExceptionDescribe"), is("ExceptionClear"), is("FindClass"), is("ThrowNew")));
}

TEST_F(HandleExceptionTest, SaysThatItHasThrownNothingWhereTheJvmFails) {
    const ValidationException validation{"a", "b"};
    for (const std::size_t failingCall : {3U, 4U, 5U, 7U}) {  // the class, its constructor, a text, the exception
        table.restart();
        table.failCall(failingCall);
        EXPECT_FALSE(handle(validation));
        EXPECT_THAT(takeException(env), testing::StartsWith("java.lang."));
    }
    table.restart();
    table.failCall(3);
    EXPECT_FALSE(handle());
    EXPECT_EQ(takeException(env), "java.lang.NoClassDefFoundError: com/kvo/talvern/TalvernException");
}

}  // namespace
