#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "mocks/configService.h"
#include "support/bridgeTest.h"

/// A test of the configuration service's native methods, which are called on one ServiceUtils object.
class ConfigTest : public BridgeTest {
  protected:
    using Service = talvern::config::Service;
    using Code = Service::ReturnCode;

    ConfigTest() {
        jclass javaClass = env->FindClass("com/kvo/talvern/config/ServiceUtils");
        receiver = env->NewObject(javaClass, env->GetMethodID(javaClass, "<init>", "()V"));
    }

    static testing::NiceMock<ConfigServiceMock>& service() { return mock<ConfigServiceMock>(); }

    /// Calls a native method of ServiceUtils on the receiver.
    template <typename... Arguments>
    Outcome request(const std::string& name, Arguments... arguments) {
        table.restart();
        return callOn(receiver, "config/ServiceUtils", name, arguments...);
    }

    /// The same for a method whose object is identified by "type", "parent" and "name".
    template <typename... Arguments>
    Outcome requestFor(const std::string& name, Arguments... arguments) {
        return request(name, javaString("type"), javaString("parent"), javaString("name"), arguments...);
    }

    /// The return code that the receiver holds.
    std::string code() {
        jmethodID getReturnCode = env->GetMethodID(env->GetObjectClass(receiver), "getReturnCode",
                                                   "()Lcom/kvo/talvern/config/ReturnCode;");
        return describe(env->CallObjectMethod(receiver, getReturnCode));
    }

    /// What a method of the test class `Values` returns, an object.
    template <typename... Arguments>
    jobject values(const char* method, const char* signature, Arguments... arguments) {
        jclass javaClass = env->FindClass("com/kvo/talvern/testing/Values");
        return env->CallStaticObjectMethod(javaClass, env->GetStaticMethodID(javaClass, method, signature),
                                           arguments...);
    }

    jobject nested(jint levels) { return values("nested", "(I)Lcom/kvo/talvern/config/Value;", levels); }
    jobject large(jint count) { return values("large", "(I)Lcom/kvo/talvern/config/Value;", count); }
    jobject faulty(const char* fault) {
        return values("faulty", "(Ljava/lang/String;)Lcom/kvo/talvern/config/Value;", javaString(fault));
    }

    /// A value of a kind that the bridge does not know.
    jobject unknown() {
        jobject structure = faulty("unknown kind");
        jmethodID get = env->GetMethodID(env->GetObjectClass(structure), "get",
                                         "(Ljava/lang/String;)Lcom/kvo/talvern/config/Value;");
        return env->CallObjectMethod(structure, get, javaString("second"));
    }

    bool areEqual(jobject left, jobject right) {
        jclass javaClass = env->FindClass("com/kvo/talvern/testing/Values");
        const char* signature = "(Lcom/kvo/talvern/config/Value;Lcom/kvo/talvern/config/Value;)Z";
        return env->CallStaticBooleanMethod(javaClass,
                                            env->GetStaticMethodID(javaClass, "areEqual", signature), left,
                                            right) == JNI_TRUE;
    }

    /// The names of those of the bridge's last calls that `wanted` lists, in their order.
    [[nodiscard]] std::vector<std::string> callsOf(const std::vector<std::string_view>& wanted) const {
        std::vector<std::string> names;
        for (const JniTable::Call& call : table.calls()) {
            if (std::find(wanted.begin(), wanted.end(), call.function) != wanted.end()) {
                names.emplace_back(call.function);
            }
        }
        return names;
    }

    jobject receiver;
};
