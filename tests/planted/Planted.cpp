// Each function holds the one fault that its name gives away.
#include <jni.h>

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "platform/nodeName.h"

namespace {

void translate(JNIEnv* env, const char* message) {
    jclass exceptionClass = env->FindClass("com/kvo/talvern/TalvernException");
    if (exceptionClass != nullptr) env->ThrowNew(exceptionClass, message);
}

/// A right native method around `convert`, which may be wrong.
template <typename Convert>
jboolean setName(JNIEnv* env, Convert convert) {
    try {
        return convert() ? JNI_TRUE : JNI_FALSE;
    } catch (const std::exception& exception) {
        translate(env, exception.what());
    } catch (...) {
        translate(env, "Unknown native exception");
    }
    return JNI_FALSE;
}

bool isSet(const char* name) { return talvern::nodeName::set(name) == 0; }

void requireText(jstring text) {
    if (text == nullptr) throw std::invalid_argument{"null string argument"};
}

/// The characters of a text, which are given back once.
struct Characters {
    Characters(JNIEnv* jniEnv, jstring javaText) : env{jniEnv}, text{javaText} {
        requireText(text);
        chars = env->GetStringUTFChars(text, nullptr);
    }
    ~Characters() { env->ReleaseStringUTFChars(text, chars); }

    JNIEnv* env;
    jstring text;
    const char* chars;
};

}  // namespace

#define PLANTED(name) JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_testing_Planted__1##name

extern "C" {

PLANTED(swallowsException)(JNIEnv* env, jobject, jstring text) {
    return setName(env, [&] {
        requireText(text);
        try {
            return isSet("name");
        } catch (...) {
            return false;
        }
    });
}

PLANTED(callsPlatformWithNull)(JNIEnv* env, jobject, jstring text) {
    return setName(env, [&] { return isSet(text == nullptr ? "" : "name"); });
}

PLANTED(hidesMissingClass)(JNIEnv* env, jobject, jstring text) {
    return setName(env, [&] {
        requireText(text);
        if (env->FindClass("java/lang/String") == nullptr) env->ExceptionClear();
        return isSet("name");
    });
}

PLANTED(losesBuffer)(JNIEnv* env, jobject, jstring text) {
    return setName(env, [&] {
        requireText(text);
        const char* chars = env->GetStringUTFChars(text, nullptr);
        const bool wasSet = isSet(chars);
        if (wasSet) env->ReleaseStringUTFChars(text, chars);
        return wasSet;
    });
}

PLANTED(releasesTwice)(JNIEnv* env, jobject, jstring text) {
    return setName(env, [&] {
        const Characters characters{env, text};
        env->ReleaseStringUTFChars(text, characters.chars);
        return isSet("name");
    });
}

PLANTED(releasesBackwards)(JNIEnv* env, jobject, jstring first, jstring second) {
    return setName(env, [&] {
        const Characters firstTaken{env, first};
        const Characters secondTaken{env, second};
        return isSet(firstTaken.chars);
    });
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_MemoryFaults__1losesMemory(JNIEnv*, jobject) {
    char* volatile lost = static_cast<char*>(std::malloc(4321));
    lost[0] = 1;
    lost = nullptr;
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_MemoryFaults__1writesBeyond(JNIEnv*, jobject) {
    volatile std::size_t size = 16;  // the compiler would see the overrun
    void* memory = std::malloc(size);
    static_cast<volatile char*>(memory)[16] = 1;
    std::free(memory);
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_MemoryFaults__1overflows(JNIEnv*, jobject) {
    volatile jint value = std::numeric_limits<jint>::max();
    value = value + 1;
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_MemoryFaults__1countsUnguarded(JNIEnv*, jobject) {
    static int count = 0;
    ++count;
}
}
