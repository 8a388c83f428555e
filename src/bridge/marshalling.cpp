#include "bridge/marshalling.h"

#include <limits>

#include "bridge/utfStrings.h"

namespace talvern::bridge {

std::string toNativeString(JNIEnv* env, jstring string) {
    UtfStrings utf{env};
    return utf.take(string);
}

std::vector<std::string> toNativeStringList(JNIEnv* env, jobjectArray strings) {
    const jsize length = lengthOf(env, strings);
    std::vector<std::string> list;
    list.reserve(static_cast<std::size_t>(length));
    UtfStrings utf{env};
    TextLimit limit;
    for (jsize i = 0; i < length; ++i) {
        limit.count(list.emplace_back(utf.take(elementOf(env, strings, i))));
        utf.releaseLast();
    }
    return list;
}

jsize lengthOf(JNIEnv* env, jobjectArray array) {
    if (array == nullptr) throw std::invalid_argument{"null array argument"};
    return env->GetArrayLength(array);
}

jstring elementOf(JNIEnv* env, jobjectArray strings, jsize index) {
    auto* element = static_cast<jstring>(env->GetObjectArrayElement(strings, index));
    if (element == nullptr) throw std::invalid_argument{"null array element"};
    return element;
}

jsize toJavaSize(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<jsize>::max())) {
        throw std::length_error{"more elements than a Java array can hold"};
    }
    return static_cast<jsize>(size);
}

jobjectArray toJavaStringArray(JNIEnv* env, const std::vector<std::string>& texts) {
    return toJavaStringArray(env, texts, [](const std::string&) {});
}

}  // namespace talvern::bridge
