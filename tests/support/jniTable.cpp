#include "support/jniTable.h"

#include <algorithm>
#include <dlfcn.h>
#include <link.h>
#include <set>
#include <string_view>
#include <tuple>
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
    original->PushLocalFrame(env, 10);
    jmethodID getName =
        original->GetMethodID(env, original->GetObjectClass(env, javaClass), "getName", "()Ljava/lang/String;");
    auto* name = static_cast<jstring>(original->CallObjectMethodA(env, javaClass, getName, nullptr));
    original->ExceptionCheck(env);  // lest -Xcheck:jni blames the bridge for this call
    const char* chars = original->GetStringUTFChars(env, name, nullptr);
    std::string text{chars};
    original->ReleaseStringUTFChars(env, name, chars);
    original->PopLocalFrame(env, nullptr);
    return text;
}

/// Notes what the bridge needs of a class of the Java side. A class of the tests stands for the one that it
/// extends.
void record(JNIEnv* env, const char* kind, jclass javaClass, const std::string& member) {
    std::string name = nameOf(env, javaClass);
    while (name.starts_with("com.kvo.talvern.testing.")) {
        javaClass = original->GetSuperclass(env, javaClass);
        name = nameOf(env, javaClass);
    }
    if (!name.starts_with("com.kvo.talvern.")) return;
    std::replace(name.begin(), name.end(), '.', '/');
    requirements.insert(std::string{kind} + " " + name + member);
}

using Functions = JNINativeInterface_;

template <auto Slot>
struct Id;

/// The name of a function of the table, which stands behind the last colon of this function's own.
template <auto Slot>
const char* functionName() {
    static const std::string name = [text = std::string{__PRETTY_FUNCTION__}] {
        const std::size_t begin = text.rfind(':') + 1;
        return text.substr(begin, text.find_first_of(";]", begin) - begin);
    }();
    return name.c_str();
}

template <auto Slot, bool CanFail>
struct Hook;

/// One function of the table: passes the call on unless it is to fail. Not all can: the JVM gives something
/// back, answers a question or throws whatever else has failed.
template <
    typename Result, typename... Arguments, Result (JNICALL* Functions::*Slot)(JNIEnv*, Arguments...), bool CanFail>
struct Hook<Slot, CanFail> {
    template <auto... Others>
    static constexpr bool is = (std::is_same_v<Id<Slot>, Id<Others>> || ...);
    static constexpr bool isLookup = is<&Functions::GetMethodID, &Functions::GetStaticMethodID>;

    static Result JNICALL call(JNIEnv* env, Arguments... arguments) {
        if (!isWatched(__builtin_return_address(0))) return (original->*Slot)(env, arguments...);
        const UncountedAllocations uncounted;
        const char* function = functionName<Slot>();
        [[maybe_unused]] const std::tuple given{arguments...};
        std::string detail;
        if constexpr (is<&Functions::FindClass>) detail = std::get<0>(given);
        [[maybe_unused]] std::string member;
        if constexpr (isLookup) {
            member = std::string{std::get<1>(given)} + " " + std::get<2>(given);
            detail = nameOf(env, std::get<0>(given)) + "." + member;
        }
        if (current->mustFail(function, detail, CanFail)) {
            if constexpr (is<&Functions::FindClass>) {
                raise(env, "java/lang/NoClassDefFoundError", std::get<0>(given));
            } else if constexpr (isLookup) {
                raise(env, "java/lang/NoSuchMethodError", std::get<1>(given));
            } else if (!JniTable::failsSilently(function)) {
                raise(env, "java/lang/OutOfMemoryError", "planted");
            }
            if constexpr (std::is_same_v<Result, jint>) {
                return JNI_ERR;
            } else {
                return Result();
            }
        }
        if constexpr (is<&Functions::ThrowNew>) {
            record(env, "throwable", std::get<0>(given), {});
            record(env, "method", std::get<0>(given), " <init> (Ljava/lang/String;)V");
        } else if constexpr (is<&Functions::Throw>) {
            record(env, "throwable", original->GetObjectClass(env, std::get<0>(given)), {});
        } else if constexpr (is<&Functions::ReleaseStringUTFChars>) {
            if (!current->given(std::get<1>(given))) return;
        } else if constexpr (std::is_same_v<Result, jobject>) {
            if (jobject answer = current->takeAnswer(function)) return answer;
        }
        if constexpr (std::is_void_v<Result>) {
            (original->*Slot)(env, arguments...);
            original->ExceptionCheck(env);  // the contract forces few; -Xcheck:jni is slow to report each that lacks
        } else {
            Result result = (original->*Slot)(env, arguments...);
            original->ExceptionCheck(env);
            if constexpr (is<&Functions::FindClass>) record(env, "class", result, {});
            if constexpr (isLookup) {
                record(env, is<&Functions::GetMethodID> ? "method" : "static", std::get<0>(given), " " + member);
            }
            if constexpr (is<&Functions::GetStringUTFChars>) current->taken(result);
            return result;
        }
    }
};

template <bool CanFail, auto... Slots>
void hook(Functions& table) {
    ((table.*Slots = Hook<Slots, CanFail>::call), ...);
}

const Functions* hookedTable() {
    static Functions table = *original;
    using F = Functions;
    hook<
        true, &F::FindClass, &F::GetMethodID, &F::GetStaticMethodID, &F::NewObjectA, &F::CallObjectMethodA,
        &F::CallBooleanMethodA, &F::CallIntMethodA, &F::CallVoidMethodA, &F::CallStaticObjectMethodA, &F::NewStringUTF,
        &F::GetStringUTFChars, &F::NewObjectArray, &F::SetObjectArrayElement, &F::NewGlobalRef, &F::PushLocalFrame,
        &F::GetJavaVM>(table);
    hook<
        false, &F::ReleaseStringUTFChars, &F::GetArrayLength, &F::GetObjectArrayElement, &F::GetObjectClass,
        &F::IsInstanceOf, &F::ExceptionDescribe, &F::ExceptionClear, &F::ExceptionCheck, &F::ThrowNew, &F::Throw,
        &F::DeleteGlobalRef, &F::DeleteLocalRef, &F::PopLocalFrame>(table);
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
    failingCall_ = static_cast<std::size_t>(-1);
}

std::vector<std::string> JniTable::takeComplaints() {
    if (!out_.empty()) complaints_.push_back(std::to_string(out_.size()) + " UTF buffers were not given back");
    out_.clear();
    return std::exchange(complaints_, {});
}

bool JniTable::failsSilently(std::string_view function) {
    return function == "GetStringUTFChars" || function == "NewGlobalRef" || function == "GetJavaVM" ||
           function == "PushLocalFrame";
}

bool JniTable::mustFail(const char* function, std::string detail, bool canFail) {
    const UncountedAllocations uncounted;
    calls_.push_back({function, std::move(detail), canFail});
    return canFail && calls_.size() - 1 == failingCall_;
}

jobject JniTable::takeAnswer(std::string_view function) {
    if (function != answering_.function || answering_.index-- != 0) return nullptr;
    return std::exchange(answering_, {}).object;
}

void JniTable::taken(const char* chars) {
    const UncountedAllocations uncounted;
    if (chars == nullptr) return;
    out_.push_back(chars);
    calls_.back().detail = chars;
}

bool JniTable::given(const char* chars) {
    const UncountedAllocations uncounted;
    const auto buffer = std::ranges::find(out_, chars);
    if (buffer == out_.end()) {
        complaints_.emplace_back("a UTF buffer was given back twice");
        return false;
    }
    calls_.back().detail = chars;
    out_.erase(buffer);
    return true;
}
