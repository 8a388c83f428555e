#pragma once

#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "bridge/signature.h"
#include "support/jniTable.h"
#include "support/jvm.h"
#include "support/natives.h"
#include "support/platform.h"

/// A test of native methods against the mocked platform. Checks after each test that all UTF buffers were
/// given back in order and that no Java exception is left that the test has not asked for.
class BridgeTest : public testing::Test {
  protected:
    BridgeTest() : env{envOfLoadedBridge()}, table{env} {}

    void TearDown() override {
        EXPECT_EQ(thrown_, "") << "a Java exception that the test did not ask for";
        EXPECT_THAT(table.takeComplaints(), testing::IsEmpty());
        platform::forgetMocks();
    }

    /// Calls a native method, which may be given a C++ text or list for a Java one. A Java exception that it
    /// raises is kept for `takeThrown`.
    template <typename... Arguments>
    Outcome call(const std::string& native, const Arguments&... arguments) {
        return callOn(nullptr, native, arguments...);
    }

    /// The same on a receiver that the test gives.
    template <typename... Arguments>
    Outcome callOn(jobject receiver, const std::string& native, const Arguments&... arguments) {
        Outcome outcome = invoke(bridgeNative(native), {toArgument(arguments)...}, receiver);
        expectSound(bridgeNative(native), outcome);
        testedNatives().insert(native);
        thrown_ = outcome.exception;
        return outcome;
    }

    /// The result of the same as text.
    template <typename... Arguments>
    std::string ask(const std::string& native, const Arguments&... arguments) {
        return call(native, arguments...).resultText;
    }

    /// The Java exception of the last call as "class: message"; empty if there was none.
    std::string takeThrown() { return std::exchange(thrown_, {}); }

    /// What must hold after each call: the result is of the class that it must be of, and all buffers and all
    /// memory are given back, but for the callback of the first upgrade.
    void expectSound(const NativeMethod& native, const Outcome& outcome) {
        EXPECT_THAT(table.takeComplaints(), testing::IsEmpty()) << native.name;
        EXPECT_LE(outcome.kept, native.name == "_upgradeFirmware" ? 1 : 0) << native.name;
        std::string type{talvern::bridge::resultType(native.signature)};
        if (type.front() == 'L') type = type.substr(1, type.size() - 2);
        if (type.size() == 1 || outcome.result.l == nullptr) return;
        EXPECT_TRUE(env->IsInstanceOf(outcome.result.l, env->FindClass(type.c_str()))) << native.name;
    }

    /// An operation hands out `list`, of which Java sees `seen`; otherwise it has none, or fails.
    template <auto Operation, typename List>
    void expectRead(
        const std::string& native, const List& list, const std::string& seen, const std::string& seenOfNone = "null",
        const std::string& seenOfFailure = "null") {
        for (const auto& [handedOut, wasRead, expected] :
             {std::tuple{list, true, seen}, {List{}, true, seenOfNone}, {list, false, seenOfFailure}}) {
            EXPECT_CALL(mockOf<Operation>(), Call(testing::IsEmpty())).WillOnce(deliver(handedOut, wasRead));
            EXPECT_EQ(ask(native), expected) << native;
        }
    }

    JNIEnv* env;
    JniTable table;

  private:
    static JNIEnv* envOfLoadedBridge() {
        bridgeNatives();
        return javaEnv();
    }

    template <typename Argument>
    static jvalue toArgument(const Argument& argument) {
        if constexpr (std::is_convertible_v<Argument, std::string_view>) {
            return talvern::bridge::toJvalue(javaString(argument));
        } else if constexpr (std::is_same_v<Argument, Texts>) {
            return talvern::bridge::toJvalue(javaStrings(argument));
        } else {
            return talvern::bridge::toJvalue(argument);
        }
    }

    const LocalFrame frame_;
    std::string thrown_;
};
