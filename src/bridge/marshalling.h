#pragma once

#include <jni.h>

#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/javaMembers.h"

namespace talvern::bridge {

// Conversions that all native methods share. Texts are modified UTF-8 on both sides. Every result is a new
// local reference. A lookup that fails throws PendingJavaException; so does a text, an array or a collection
// that the JVM has no memory for, since what it would be handed to could hide the JVM's error by one of its
// own.

/// A copy of `string`; its characters are given back at once.
/// @throws std::invalid_argument  `string` is null
std::string toNativeString(JNIEnv* env, jstring string);

/// A Java string of `text` up to its first NUL.
inline jstring toJavaString(JNIEnv* env, const std::string& text) { return notNull(env->NewStringUTF(text.c_str())); }

/// Copies of all elements, in order.
/// @throws std::invalid_argument  the array or one of its elements is null
/// @throws std::length_error      the texts come to more than 256 MiB
std::vector<std::string> toNativeStringList(JNIEnv* env, jobjectArray strings);

/// The number of elements of `array`, an argument from Java.
/// @throws std::invalid_argument  `array` is null
jsize lengthOf(JNIEnv* env, jobjectArray array);

/// One string of a `String[]`, an argument from Java.
/// @throws std::invalid_argument  it is null
jstring elementOf(JNIEnv* env, jobjectArray strings, jsize index);

/// `size` as the JNI counts.
/// @throws std::length_error  no Java array can have so many elements
jsize toJavaSize(std::size_t size);

/// What `read` puts into an empty list; nothing if it fails, since Java is told the same of both.
template <typename Entry>
std::vector<Entry> readList(bool (*read)(std::vector<Entry>&)) {
    std::vector<Entry> list;
    if (!read(list)) list.clear();
    return list;
}

/// Makes sure that each pointer of a list from the platform leads to a record.
/// @throws std::runtime_error  one is null; the message names the list and the index
template <typename Record>
void requireRecords(const std::vector<Record*>& records, const std::string& listName) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i] == nullptr) {
            throw std::runtime_error{"null record in the list of " + listName + " at index " + std::to_string(i)};
        }
    }
}

/// A Java array with one element per entry of `entries`, in order: what `convert` makes of it. `initial`
/// fills the array before; it stays only where `convert` ends the call.
template <typename Entries, typename Convert>
jobjectArray toJavaArray(JNIEnv* env, jclass elementClass, jobject initial, const Entries& entries, Convert convert) {
    jobjectArray array = notNull(env->NewObjectArray(toJavaSize(std::size(entries)), elementClass, initial));
    jsize index = 0;
    for (const auto& entry : entries) env->SetObjectArrayElement(array, index++, convert(entry));
    return array;
}

/// As `toJavaStringArray`; calls `afterEach` with each text as soon as its element is stored.
template <typename AfterEach>
jobjectArray toJavaStringArray(JNIEnv* env, const std::vector<std::string>& texts, AfterEach afterEach) {
    jstring empty = toJavaString(env, "");
    jclass stringClass = findClass(env, "java/lang/String");
    jobjectArray array = notNull(env->NewObjectArray(toJavaSize(texts.size()), stringClass, empty));
    jsize index = 0;
    for (const std::string& text : texts) {
        env->SetObjectArrayElement(array, index++, toJavaString(env, text));
        afterEach(text);
    }
    return array;
}

/// A `String[]` of the texts, in order; of length 0 if there are none.
jobjectArray toJavaStringArray(JNIEnv* env, const std::vector<std::string>& texts);

/// A Java enum whose constants stand in the order of the native enumeration.
template <Literal Class>
class JavaEnum {
  public:
    explicit JavaEnum(JNIEnv* env) : JavaEnum{env, findClass(env, Class.text)} {}
    JavaEnum(JNIEnv* env, jclass javaClass) : values_{env, javaClass} {}

    /// All constants, each at its ordinal. Beyond them the JVM raises an ArrayIndexOutOfBoundsException.
    [[nodiscard]] jobjectArray constants() const { return static_cast<jobjectArray>(notNull(values_())); }

  private:
    StaticMethod<"values", Literal{"()[L"} + Class + Literal{";"}> values_;
};

/// java.util.HashMap: creates and fills any number of maps with one lookup.
class JavaHashMaps {
  public:
    explicit JavaHashMaps(JNIEnv* env)
        : class_{findClass(env, "java/util/HashMap")}, put_{env, class_}, create_{env, class_} {}

    [[nodiscard]] jclass javaClass() const { return class_; }
    [[nodiscard]] jobject create() const { return notNull(create_()); }
    void put(jobject map, jobject key, jobject value) const { put_(map, key, value); }

  private:
    jclass class_;
    Method<"put", "(Ljava/lang/Object;Ljava/lang/Object;)Ljava/lang/Object;"> put_;
    Constructor<"()V"> create_;
};

/// A list class of java.util (ArrayList or Vector): creates and fills any number of lists with one lookup.
template <Literal Class>
class JavaLists {
  public:
    explicit JavaLists(JNIEnv* env)
        : env_{env}, class_{findClass(env, Class.text)}, create_{env, class_}, add_{env, class_} {}

    [[nodiscard]] jobject create() const { return notNull(create_()); }

    /// Adds one Java string per text to `list`, in order.
    void addAll(jobject list, const std::vector<std::string>& texts) const {
        for (const std::string& text : texts) add_(list, toJavaString(env_, text));
    }

    /// A new list of the texts.
    [[nodiscard]] jobject of(const std::vector<std::string>& texts) const {
        jobject list = create();
        addAll(list, texts);
        return list;
    }

  private:
    JNIEnv* env_;
    jclass class_;
    Constructor<"()V"> create_;
    Method<"add", "(Ljava/lang/Object;)Z"> add_;
};

/// What a native method returns for a status: true exactly when it is 0.
constexpr jboolean isSuccess(int status) { return status == 0 ? JNI_TRUE : JNI_FALSE; }

constexpr jboolean toJavaBoolean(bool value) { return value ? JNI_TRUE : JNI_FALSE; }

}  // namespace talvern::bridge
