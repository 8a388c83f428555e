#include "support/natives.h"

#include <dlfcn.h>
#include <ffi.h>
#include <stdexcept>

#include "bridge/signature.h"
#include "support/allocation.h"
#include "support/jvm.h"

using namespace talvern::bridge;

namespace {

/// The function of the loaded bridge that the JVM binds to the method; null if there is none.
void (*boundFunction(const NativeMethod& native))() {
    std::string symbol = "Java_";
    for (const char c : native.className + "/" + native.name) {
        symbol += c == '/' ? "_" : c == '_' ? "_1" : std::string{c};
    }
    void* handle = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
    return reinterpret_cast<void (*)()>(dlsym(handle, symbol.c_str()));
}

ffi_type* foreignType(std::string_view type) {
    if (type == "V") return &ffi_type_void;
    if (type == "Z") return &ffi_type_uint8;
    if (type == "I") return &ffi_type_sint32;
    return type == "J" ? &ffi_type_sint64 : &ffi_type_pointer;
}

std::string toText(jvalue value, std::string_view type) {
    if (type == "V") return "";
    if (type == "Z") return value.z == JNI_TRUE ? "true" : "false";
    if (type == "I") return std::to_string(value.i);
    return type == "J" ? std::to_string(value.j) : describe(value.l);
}

/// Calls the function with the types that the Java signature gives it.
jvalue callFunction(const NativeMethod& native, jobject receiver, std::vector<jvalue> arguments) {
    JNIEnv* env = javaEnv();
    std::vector<ffi_type*> types{&ffi_type_pointer, &ffi_type_pointer};
    std::vector<void*> values{static_cast<void*>(&env), static_cast<void*>(&receiver)};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        types.push_back(foreignType(parameterType(native.signature, i)));
        values.push_back(&arguments[i]);
    }
    ffi_cif interface {};
    ffi_prep_cif(
        &interface, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), foreignType(resultType(native.signature)),
        types.data());
    union {
        ffi_arg narrow;  // libffi widens results to this
        jvalue value;
    } result{};
    const CountedAllocations counted;
    ffi_call(&interface, native.function, &result, values.data());
    return result.value;
}

std::vector<NativeMethod> list() {
    JNIEnv* env = javaEnv();
    auto* texts = static_cast<jobjectArray>(callStatic(
        "com/kvo/talvern/testing/Natives", "list", "(Ljava/lang/String;Ljava/lang/String;)[Ljava/lang/String;",
        javaString(TALVERN_API_JAR), javaString("com/kvo/talvern/")));
    if (const std::string exception = takeException(env); !exception.empty()) {
        throw std::runtime_error{"the native methods can't be listed: " + exception};
    }
    std::vector<NativeMethod> methods;
    const auto text = [&](jsize i) { return describe(env->GetObjectArrayElement(texts, i)); };
    for (jsize i = 0; i < env->GetArrayLength(texts); i += 3) {
        NativeMethod native{text(i), text(i + 1), text(i + 2), nullptr, nullptr};
        native.javaClass = static_cast<jclass>(env->NewGlobalRef(env->FindClass(native.className.c_str())));
        native.function = boundFunction(native);
        methods.push_back(native);
    }
    return methods;
}

/// An object of the class that a signature names as "Lname;".
jobject plausibleObject(const std::string& type, std::size_t index) {
    JNIEnv* env = javaEnv();
    const std::string ofParameter = " of " + std::to_string(index);
    if (type == "Ljava/lang/String;") return javaString("text" + ofParameter);
    if (type == "[Ljava/lang/String;") return javaStrings({"first" + ofParameter, "second" + ofParameter});
    if (type.front() == '[') {
        return env->NewObjectArray(5, env->FindClass(type.substr(2, type.size() - 3).c_str()), nullptr);
    }
    const std::string name = type.substr(1, type.size() - 2);
    if (name == "com/kvo/talvern/config/Value") {
        return callStatic(  // a list of two structures
            "com/kvo/talvern/testing/Values", "doubled", "(ILjava/lang/String;)Lcom/kvo/talvern/config/Value;", 2,
            javaString("text"));
    }
    if (name == "com/kvo/talvern/firmwaremanager/FirmwareManagerUtils$UpgradeCallback") {
        return newObject("com/kvo/talvern/testing/RecordingCallback");
    }
    return javaConstant(name, 1);
}

/// The native methods are called without their class's constructor, except for the value that `_asXML`
/// renders.
jobject receiverOf(const NativeMethod& native) {
    if (native.className == "com/kvo/talvern/config/Value") return plausibleObject("L" + native.className + ";", 0);
    return javaEnv()->AllocObject(native.javaClass);
}

}  // namespace

const std::vector<NativeMethod>& bridgeNatives() {
    static const std::vector<NativeMethod> natives = list();
    return natives;
}

const NativeMethod& bridgeNative(const std::string& name) {
    for (const NativeMethod& native : bridgeNatives()) {
        if (native.name == name) return native;
    }
    throw std::runtime_error{"no native method " + name};
}

std::set<std::string>& testedNatives() {
    static std::set<std::string> names;
    return names;
}

std::vector<jvalue> plausibleArguments(const NativeMethod& native) {
    std::vector<jvalue> arguments;
    for (std::size_t i = 0; i < parameterCount(native.signature); ++i) {
        const std::string type{parameterType(native.signature, i)};
        arguments.push_back(
            type == "Z"   ? toJvalue(true)
            : type == "I" ? toJvalue(jint{1})
            : type == "J" ? toJvalue(jlong{1})
                          : toJvalue(plausibleObject(type, i)));
    }
    return arguments;
}

Outcome invoke(const NativeMethod& native, const std::vector<jvalue>& arguments, jobject receiver) {
    Outcome outcome{};
    if (receiver == nullptr) receiver = receiverOf(native);
    const std::ptrdiff_t before = aliveAllocations();
    outcome.result = callFunction(native, receiver, arguments);
    outcome.kept = aliveAllocations() - before;
    outcome.exception = takeException(javaEnv());
    outcome.resultText = toText(outcome.result, resultType(native.signature));
    return outcome;
}

std::string invokeThroughJvm(const NativeMethod& native, const std::vector<jvalue>& arguments) {
    JNIEnv* env = javaEnv();
    std::vector<jvalue> padded = arguments;
    padded.emplace_back();  // so that there is an array even for no arguments
    jmethodID id = env->GetMethodID(native.javaClass, native.name.c_str(), native.signature.c_str());
    env->CallVoidMethodA(receiverOf(native), id, padded.data());  // drops a result of any type
    return takeException(env);
}
