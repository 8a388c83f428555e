// Random trees, with any bytes as texts. What the platform hands out must come back, and nothing may crash.
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

#include "bridge/signature.h"
#include "support/jvm.h"
#include "support/natives.h"
#include "support/platform.h"

using namespace talvern::bridge;
using namespace talvern::config;

namespace {

std::unique_ptr<Value> anyTree(FuzzedDataProvider& data, int levels) {
    const bool mu = data.ConsumeBool();
    const int kind = data.ConsumeIntegralInRange(0, levels > 1 ? 3 : 1);
    if (kind == 0) return nullptr;
    if (kind == 1) return std::make_unique<SimpleValue>(data.ConsumeRandomLengthString(40), mu);
    const int size = data.ConsumeIntegralInRange(0, 4);
    if (kind == 2) {
        auto structure = std::make_unique<StructValue>(mu);
        for (int i = 0; i < size; ++i) structure->put(data.ConsumeRandomLengthString(40), anyTree(data, levels - 1));
        return structure;
    }
    auto list = std::make_unique<ArrayValue>(mu);
    for (int i = 0; i < size; ++i) list->add(anyTree(data, levels - 1));
    return list;
}

}  // namespace

extern "C" const char* __asan_default_options() { return "handle_segv=0:detect_leaks=0:alloc_dealloc_mismatch=0"; }

// Loads the bridge, whose ways are counted, before the first input.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    bridgeNatives();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const LocalFrame frame;
    platform::forgetMocks();  // of the last input
    FuzzedDataProvider data{bytes, size};
    std::unique_ptr<Value> kept = anyTree(data, 6);  // by the platform
    platform::answer<&Service::queryObject>([&](auto&, auto&, auto&, auto** value) {
        *value = kept.get();
        return Service::ReturnCode{};
    });
    platform::answer<&Service::updateObject>([&](auto&, auto&, auto&, const Value* value, bool) {
        kept.reset(value->clone());
        return Service::ReturnCode{};
    });
    const std::vector<jvalue> id = plausibleArguments(bridgeNative("_queryObject"));
    const auto fetch = [&] { return invoke(bridgeNative("_queryObject"), id).result.l; };
    const auto sendAndFetch = [&](jobject tree) {
        std::vector<jvalue> update = id;
        update.insert(update.end(), {toJvalue(tree), toJvalue(false)});
        if (!invoke(bridgeNative("_updateObject"), update).exception.empty()) std::abort();
        return fetch();
    };
    jobject first = fetch();  // the JVM makes texts of bytes that are none, which do not always equal their copies
    if (first == nullptr) return 0;
    jobject tree = sendAndFetch(first);
    jmethodID equals = javaEnv()->GetMethodID(javaEnv()->GetObjectClass(tree), "equals", "(Ljava/lang/Object;)Z");
    if (javaEnv()->CallBooleanMethod(tree, equals, sendAndFetch(tree)) != JNI_TRUE) std::abort();
    return 0;
}
