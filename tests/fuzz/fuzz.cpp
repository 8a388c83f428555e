// Random input for the conversions, in both directions. What goes in must come back, and nothing may crash.
#include <jni.h>

#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>

#include "bridge/signature.h"
#include "platform/configService.h"
#include "platform/nodeName.h"
#include "support/jvm.h"
#include "support/natives.h"
#include "support/platform.h"

using namespace talvern;
using namespace talvern::bridge;
using config::Service;
using config::Value;
using testing::_;

namespace {

JNIEnv* env = nullptr;

void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << what << '\n';
    std::abort();
}

bool areEqual(jobject left, jobject right) {
    if (left == nullptr || right == nullptr) return left == right;
    jmethodID equals = env->GetMethodID(env->GetObjectClass(left), "equals", "(Ljava/lang/Object;)Z");
    return env->CallBooleanMethod(left, equals, right) == JNI_TRUE;
}

jstring anyText(FuzzedDataProvider& data) {
    const std::size_t length = data.ConsumeIntegralInRange<std::size_t>(0, 40);
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i) text.push_back(data.ConsumeIntegral<char16_t>());
    return env->NewString(reinterpret_cast<const jchar*>(text.data()), static_cast<jsize>(text.size()));
}

jobject anyTree(FuzzedDataProvider& data, int levels) {
    const auto mu = static_cast<jboolean>(data.ConsumeBool());
    const int kind = data.ConsumeIntegralInRange(0, levels > 1 ? 3 : 1);
    if (kind == 0) return nullptr;
    if (kind == 1) return newObject("com/kvo/talvern/config/SimpleValue", "(Ljava/lang/String;Z)V", anyText(data), mu);
    const bool isStruct = kind == 2;
    jobject value =
        newObject(isStruct ? "com/kvo/talvern/config/StructValue" : "com/kvo/talvern/config/ArrayValue", "(Z)V", mu);
    jclass javaClass = env->GetObjectClass(value);
    for (int size = data.ConsumeIntegralInRange(0, 4); size > 0; --size) {
        if (isStruct) {
            jmethodID put = env->GetMethodID(
                javaClass, "put", "(Ljava/lang/String;Lcom/kvo/talvern/config/Value;)Lcom/kvo/talvern/config/Value;");
            jstring key = anyText(data);
            env->CallObjectMethod(value, put, key, anyTree(data, levels - 1));
        } else {
            jmethodID add = env->GetMethodID(javaClass, "add", "(Lcom/kvo/talvern/config/Value;)Z");
            env->CallBooleanMethod(value, add, anyTree(data, levels - 1));
        }
    }
    return value;
}

void bytesOfThePlatform(FuzzedDataProvider& data) {
    const std::string bytes = data.ConsumeRandomLengthString();
    ON_CALL(mockOf<&nodeName::get>(), Call).WillByDefault(testing::Return(bytes));
    invoke(bridgeNative("_getNodeName"), {});
}

void tree(FuzzedDataProvider& data) {
    std::unique_ptr<Value> kept;
    ON_CALL(mockOf<&config::Service::updateObject>(), Call)
        .WillByDefault([&](const auto&, const auto&, const auto&, const Value* value, bool) {
            kept.reset(value == nullptr ? nullptr : value->clone());
            return Service::ReturnCode{};
        });
    ON_CALL(mockOf<&config::Service::queryObject>(), Call)
        .WillByDefault([&](const auto&, const auto&, const auto&, Value** value) {
            *value = kept.get();
            return Service::ReturnCode{};
        });
    jobject in = anyTree(data, 6);
    if (in == nullptr) return;
    const std::vector<jvalue> id{toJvalue(javaString("t")), toJvalue(javaString("p")), toJvalue(javaString("n"))};
    std::vector<jvalue> update = id;
    update.insert(update.end(), {toJvalue(in), toJvalue(false)});
    require(invoke(bridgeNative("_updateObject"), update).exception.empty(), "refused");
    require(areEqual(in, invoke(bridgeNative("_queryObject"), id).result.l), "another tree");
}

}  // namespace

extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "handle_segv=0:detect_leaks=0:alloc_dealloc_mismatch=0"; }

// Loads the bridge, whose ways are counted, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    env = javaEnv();
    bridgeNatives();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const LocalFrame frame;
    FuzzedDataProvider data{bytes, size};
    data.PickValueInArray({&bytesOfThePlatform, &tree})(data);
    platform::forgetMocks();
    return 0;
}
