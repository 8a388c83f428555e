#include "support/jniTable.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <set>
#include <string_view>
#include <type_traits>
#include <utility>

#include "support/allocation.h"

namespace {

thread_local JniTable* current = nullptr;
const JNINativeInterface_* original = nullptr;
std::set<std::string> requirements;

/// Whether the call comes from a library whose calls are watched.
bool isWatched(void* address) {
    dl_find_object caller{};
    if (current == nullptr || _dl_find_object(address, &caller) != 0) return false;
    const std::string_view file{caller.dlfo_link_map->l_name};
    return file.ends_with("/libtalvernjni.so");
}

void raise(JNIEnv* env, const char* className, const char* message) {
    original->ExceptionClear(env);
    original->ThrowNew(env, original->FindClass(env, className), message);
}

std::string nameOf(JNIEnv* env, jclass javaClass) {
    if (javaClass == nullptr || original->ExceptionCheck(env) == JNI_TRUE) return "?";
    jclass metaClass = original->GetObjectClass(env, javaClass);
    jmethodID getName = original->GetMethodID(env, metaClass, "getName", "()Ljava/lang/String;");
    auto* name = static_cast<jstring>(original->CallObjectMethodA(env, javaClass, getName, nullptr));
    original->ExceptionCheck(env);  // lest -Xcheck:jni blames the bridge for this call
    const char* chars = original->GetStringUTFChars(env, name, nullptr);
    std::string text{chars};
    original->ReleaseStringUTFChars(env, name, chars);
    return text;
}

/// Notes what the bridge needs of a class of the Java side. A class of the tests stands for the one that it
/// extends.
void record(JNIEnv* env, const char* kind, jclass javaClass, const std::string& member) {
    if (original->ExceptionCheck(env) == JNI_TRUE) return;
    original->PushLocalFrame(env, 10);
    std::string name = nameOf(env, javaClass);
    while (name.starts_with("com.kvo.talvern.testing.")) {
        javaClass = original->GetSuperclass(env, javaClass);
        name = nameOf(env, javaClass);
    }
    original->PopLocalFrame(env, nullptr);
    if (!name.starts_with("com.kvo.talvern.")) return;
    std::replace(name.begin(), name.end(), '.', '/');
    requirements.insert(std::string{kind} + " " + name + member);
}

template <auto Slot, bool CanFail>
struct Hook;

/// One function of the table: passes the call on unless it is to fail. Not all can: the JVM gives something
/// back, answers a question or throws whatever else has failed.
template <typename Result, typename... Arguments,
          Result (JNICALL* JNINativeInterface_::*Slot)(JNIEnv*, Arguments...), bool CanFail>
struct Hook<Slot, CanFail> {
    static inline const char* name = nullptr;

    static Result JNICALL call(JNIEnv* env, Arguments... arguments) {
        if (isWatched(__builtin_return_address(0))) {
            if (current->mustFail(name, {}, CanFail)) {
                if (!JniTable::failsSilently(name)) raise(env, current->failure(), "planted");
                return Result();
            }
            if constexpr (std::is_same_v<Result, jobject>) {
                if (jobject answer = current->takeAnswer(name)) return answer;
            }
        }
        return (original->*Slot)(env, arguments...);
    }
};

/// A function that says by a status that it failed.
template <auto Slot, typename Argument>
jint JNICALL hookedStatus(JNIEnv* env, Argument argument) {
    const char* function = std::is_same_v<Argument, JavaVM**> ? "GetJavaVM" : "PushLocalFrame";
    if (isWatched(__builtin_return_address(0)) && current->mustFail(function, {})) return JNI_ERR;
    return (original->*Slot)(env, argument);
}

jclass JNICALL hookedFindClass(JNIEnv* env, const char* name) {
    const UncountedAllocations uncounted;
    if (isWatched(__builtin_return_address(0)) && current->mustFail("FindClass", name)) {
        raise(env, "java/lang/NoClassDefFoundError", name);
        return nullptr;
    }
    jclass javaClass = original->FindClass(env, name);
    if (isWatched(__builtin_return_address(0))) record(env, "class", javaClass, {});
    return javaClass;
}

template <auto Slot>
jmethodID JNICALL hookedLookup(JNIEnv* env, jclass javaClass, const char* name, const char* signature) {
    const UncountedAllocations uncounted;
    constexpr bool isStatic = Slot == &JNINativeInterface_::GetStaticMethodID;
    const bool watched = isWatched(__builtin_return_address(0));
    const std::string member = std::string{name} + " " + signature;
    if (watched && current->mustFail(isStatic ? "GetStaticMethodID" : "GetMethodID",
                                     nameOf(env, javaClass) + "." + member)) {
        raise(env, "java/lang/NoSuchMethodError", name);
        return nullptr;
    }
    jmethodID id = (original->*Slot)(env, javaClass, name, signature);
    if (watched && id != nullptr) record(env, isStatic ? "static" : "method", javaClass, " " + member);
    return id;
}

jint JNICALL hookedThrowNew(JNIEnv* env, jclass javaClass, const char* message) {
    const UncountedAllocations uncounted;
    if (isWatched(__builtin_return_address(0))) {
        current->mustFail("ThrowNew", {}, false);
        record(env, "throwable", javaClass, {});
        record(env, "method", javaClass, " <init> (Ljava/lang/String;)V");
    }
    return original->ThrowNew(env, javaClass, message);
}

jint JNICALL hookedThrow(JNIEnv* env, jthrowable exception) {
    const UncountedAllocations uncounted;
    if (isWatched(__builtin_return_address(0))) {
        current->mustFail("Throw", {}, false);
        record(env, "throwable", original->GetObjectClass(env, exception), {});
    }
    return original->Throw(env, exception);
}

const char* JNICALL hookedGetStringUTFChars(JNIEnv* env, jstring string, jboolean* isCopy) {
    const bool watched = isWatched(__builtin_return_address(0));
    if (watched && current->mustFail("GetStringUTFChars", {})) return nullptr;
    const char* chars = original->GetStringUTFChars(env, string, isCopy);
    if (watched && chars != nullptr) current->taken(chars);
    return chars;
}

void JNICALL hookedReleaseStringUTFChars(JNIEnv* env, jstring string, const char* chars) {
    const bool watched = isWatched(__builtin_return_address(0));
    if (watched) current->mustFail("ReleaseStringUTFChars", {}, false);
    if (!watched || current->given(chars)) original->ReleaseStringUTFChars(env, string, chars);
}

const JNINativeInterface_* hookedTable() {
    static JNINativeInterface_ table = *original;
#define HOOK(canFail, function)                                      \
    Hook<&JNINativeInterface_::function, canFail>::name = #function; \
    table.function = Hook<&JNINativeInterface_::function, canFail>::call
    HOOK(true, NewObjectA);
    HOOK(true, CallObjectMethodA);
    HOOK(true, CallBooleanMethodA);
    HOOK(true, CallIntMethodA);
    HOOK(true, CallStaticObjectMethodA);
    HOOK(true, NewStringUTF);
    HOOK(true, NewObjectArray);
    HOOK(true, CallVoidMethodA);
    HOOK(true, SetObjectArrayElement);
    HOOK(true, NewGlobalRef);
    HOOK(false, GetArrayLength);
    HOOK(false, GetObjectArrayElement);
    HOOK(false, GetObjectClass);
    HOOK(false, IsInstanceOf);
    HOOK(false, ExceptionDescribe);
    HOOK(false, ExceptionClear);
    HOOK(false, ExceptionCheck);
    HOOK(false, DeleteGlobalRef);
    HOOK(false, PopLocalFrame);
#undef HOOK
    table.GetJavaVM = hookedStatus<&JNINativeInterface_::GetJavaVM>;
    table.PushLocalFrame = hookedStatus<&JNINativeInterface_::PushLocalFrame>;
    table.FindClass = hookedFindClass;
    table.ThrowNew = hookedThrowNew;
    table.Throw = hookedThrow;
    table.GetMethodID = hookedLookup<&JNINativeInterface_::GetMethodID>;
    table.GetStaticMethodID = hookedLookup<&JNINativeInterface_::GetStaticMethodID>;
    table.GetStringUTFChars = hookedGetStringUTFChars;
    table.ReleaseStringUTFChars = hookedReleaseStringUTFChars;
    return &table;
}

}  // namespace

const std::set<std::string>& recordedRequirements() { return requirements; }

JniTable* currentJniTable() { return current; }

bool JniTable::Call::isLookup() const {
    const std::string_view name{function};
    return name == "FindClass" || name == "GetMethodID" || name == "GetStaticMethodID";
}

JniTable::JniTable(JNIEnv* env) : env_{env} {
    if (original == nullptr) original = env->functions;
    env->functions = hookedTable();
    current = this;
}

JniTable::~JniTable() {
    env_->functions = original;
    current = nullptr;
}

void JniTable::restart() {
    calls_.clear();
    hiddenClass_.clear();
    failingCall_ = static_cast<std::size_t>(-1);
    failure_ = "java/lang/OutOfMemoryError";
}

void JniTable::platformCalled() {
    for (Buffer& buffer : out_) buffer.wasHeldOverPlatformCall = true;
}

std::vector<std::string> JniTable::takeComplaints() {
    if (!out_.empty())
        complaints_.push_back(std::to_string(out_.size()) + " UTF buffers were not given back");
    out_.clear();
    return std::exchange(complaints_, {});
}

bool JniTable::failsSilently(std::string_view function) {
    return function == "GetStringUTFChars" || function == "NewGlobalRef";
}

bool JniTable::mustFail(const char* function, std::string detail, bool canFail) {
    const UncountedAllocations uncounted;
    const bool isHidden =
        !hiddenClass_.empty() && std::strcmp(function, "FindClass") == 0 && detail == hiddenClass_;
    calls_.push_back({function, std::move(detail), canFail});
    return canFail && (isHidden || calls_.size() - 1 == failingCall_);
}

jobject JniTable::takeAnswer(std::string_view function) {
    if (function != answering_.function || answering_.index-- != 0) return nullptr;
    return std::exchange(answering_, {}).object;
}

void JniTable::taken(const char* chars) {
    const UncountedAllocations uncounted;
    out_.push_back({chars, false});
    calls_.back().detail = chars;
}

bool JniTable::given(const char* chars) {
    const UncountedAllocations uncounted;
    const auto buffer =
        std::find_if(out_.begin(), out_.end(), [&](const Buffer& b) { return b.chars == chars; });
    if (buffer == out_.end()) {
        complaints_.emplace_back("a UTF buffer was given back twice");
        return false;
    }
    const bool isOldest =
        std::none_of(out_.begin(), buffer, [](const Buffer& b) { return b.wasHeldOverPlatformCall; });
    if (buffer->wasHeldOverPlatformCall && !isOldest) {
        complaints_.emplace_back("UTF buffers were given back in another order than taken");
    }
    out_.erase(buffer);
    return true;
}
