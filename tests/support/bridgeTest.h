#pragma once

#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "bridge/signature.h"
#include "mocks/mock.h"
#include "support/jniTable.h"
#include "support/jvm.h"
#include "support/natives.h"

/// A test of native methods against the mocked platform. Checks after each test that all UTF buffers were
/// given back in order and that no Java exception is left that the test has not asked for.
class BridgeTest : public testing::Test {
  protected:
    BridgeTest() : env{envOfLoadedBridge()}, table{env} { env->PushLocalFrame(1000); }

    ~BridgeTest() override { env->PopLocalFrame(nullptr); }

    void TearDown() override {
        EXPECT_EQ(thrown_, "") << "a Java exception that the test did not ask for";
        EXPECT_THAT(table.takeComplaints(), testing::IsEmpty());
        platform::mocks().clear();
    }

    /// Calls a native method; `className` is given without "com/kvo/talvern/". A Java exception that it
    /// raises is kept for `takeThrown`.
    template <typename... Arguments>
    Outcome call(const std::string& className, const std::string& name, Arguments... arguments) {
        return keep(invoke(bridgeNative(className, name), {toJvalue(arguments)...}));
    }

    /// The same on a receiver that the test gives.
    template <typename... Arguments>
    Outcome
    callOn(jobject receiver, const std::string& className, const std::string& name, Arguments... arguments) {
        return keep(invoke(bridgeNative(className, name), receiver, {toJvalue(arguments)...}));
    }

    /// The Java exception of the last call as "class: message"; empty if there was none.
    std::string takeThrown() { return std::exchange(thrown_, {}); }

    JNIEnv* env;
    JniTable table;

  private:
    static JNIEnv* envOfLoadedBridge() {
        bridgeNatives();
        plantedNatives();
        return javaEnv();
    }

    Outcome keep(const Outcome& outcome) {
        thrown_ = outcome.exception;
        return outcome;
    }

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
