#pragma once

#include <algorithm>
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
        return keep(native, invoke(bridgeNative(native), {toArgument(arguments)...}));
    }

    /// The same on a receiver that the test gives.
    template <typename... Arguments>
    Outcome callOn(jobject receiver, const std::string& native, const Arguments&... arguments) {
        return keep(native, invoke(bridgeNative(native), receiver, {toArgument(arguments)...}));
    }

    /// The result of the same as text.
    template <typename... Arguments>
    std::string ask(const std::string& native, const Arguments&... arguments) {
        return call(native, arguments...).resultText;
    }

    /// The Java exception of the last call as "class: message"; empty if there was none.
    std::string takeThrown() { return std::exchange(thrown_, {}); }

    /// The names of those of the bridge's JNI calls that `wanted` lists, in their order.
    [[nodiscard]] Texts callsOf(const Texts& wanted) const {
        Texts names;
        for (const JniTable::Call& made : table.calls()) {
            if (std::ranges::count(wanted, made.function) > 0) names.emplace_back(made.function);
        }
        return names;
    }

    /// A native method has given back all buffers and all memory, but for the callback of the first upgrade.
    void expectNothingKept(const std::string& native, const Outcome& outcome) {
        EXPECT_THAT(table.takeComplaints(), testing::IsEmpty()) << native;
        EXPECT_LE(outcome.kept, native == "_upgradeFirmware" ? 1 : 0) << native;
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

    Outcome keep(const std::string& native, const Outcome& outcome) {
        expectNothingKept(native, outcome);
        testedNatives().insert(native);
        thrown_ = outcome.exception;
        return outcome;
    }

    const LocalFrame frame_;
    std::string thrown_;
};

/// A test with very many JNI calls; runs only where the JVM does not check them. The names of such suites
/// start with "Large": these tests have a run of their own.
class LargeTest : public BridgeTest {
  protected:
    void SetUp() override {
        if (isJniChecked()) GTEST_SKIP() << "too many calls for a JVM that checks each";
    }
};
