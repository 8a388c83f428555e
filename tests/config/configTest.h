#pragma once

#include "support/bridgeTest.h"

using namespace talvern;

/// A test of the configuration service's native methods, which are called on one ServiceUtils object.
class ConfigTest : public BridgeTest {
  protected:
    using Service = config::Service;
    using Code = Service::ReturnCode;

    /// Calls a native method of ServiceUtils on the receiver.
    template <typename... Arguments>
    Outcome request(const std::string& native, const Arguments&... arguments) {
        table.restart();
        return callOn(receiver, native, arguments...);
    }

    /// The result, as text, for the object that is identified by "type", "parent" and "name".
    template <typename... Arguments>
    std::string askFor(const std::string& native, const Arguments&... arguments) {
        return request(native, "type", "parent", "name", arguments...).resultText;
    }

    /// The return code that the receiver holds.
    std::string code() {
        return describe(callMethod(receiver, "getReturnCode", "()Lcom/kvo/talvern/config/ReturnCode;"));
    }

    /// What a method of the test class `Values` makes.
    template <typename... Arguments>
    static jobject values(const char* method, const char* signature, Arguments... arguments) {
        return callStatic("com/kvo/talvern/testing/Values", method, signature, arguments...);
    }

    static jobject doubled(jint levels, const std::string& text) {
        return values("doubled", "(ILjava/lang/String;)Lcom/kvo/talvern/config/Value;", levels, javaString(text));
    }
    static jobject faulty(const char* fault) {
        return values("faulty", "(Ljava/lang/String;)Lcom/kvo/talvern/config/Value;", javaString(fault));
    }

    /// A value of a kind that the bridge does not know.
    static jobject unknown() {
        return callMethod(
            faulty("unknown kind"), "get", "(Ljava/lang/String;)Lcom/kvo/talvern/config/Value;", javaString("second"));
    }

    jobject receiver = newObject("com/kvo/talvern/config/ServiceUtils");
};
