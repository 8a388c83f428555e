#pragma once

#include <jni.h>

#include <cstddef>
#include <exception>

#include "bridge/handleException.h"
#include "bridge/pendingJavaException.h"

namespace talvern::bridge {

// The frames around the bodies of the native methods. No C++ exception leaves them: each reaches Java as a
// Java exception, and the native method returns its failure value.

/// Turns the exception that is being handled into its Java counterpart. If native memory runs out over it,
/// Java still receives an exception of the general kind.
template <typename... Exception>
void translate(JNIEnv* env, const Exception&... exception) noexcept {
    try {
        handleException(env, exception...);
    } catch (...) {
        env->ExceptionClear();
        throwTalvernException(env, "Unknown native exception");
    }
}

/// After a JNI call that came back without an object: the JVM's own exception is on its way to the caller
/// already, but for native memory that runs out for the characters of a string or for a global reference.
/// Then the caller receives a TalvernException.
void ensureJavaException(JNIEnv* env) noexcept;

/// Whether the C++ runtime has the memory that a thread's exceptions need. In the memory that the thread
/// starts with: a look there is no call.
[[gnu::tls_model("initial-exec")]] inline constinit thread_local bool canThrow = false;

/// Makes the C++ runtime take that memory, without which the thread's first exception would end the process:
/// before the native method uses up what there is.
void prepareToThrow() noexcept;

/// The frame of most native methods: runs `body` and returns its result. Always inlined, as are those that
/// pass on: code shared by several native methods would cost each a call more.
template <typename Result, typename Body>
[[gnu::always_inline]] inline Result entryPoint(JNIEnv* env, Result failureValue, Body body) noexcept {
    if (!canThrow) [[unlikely]]
        prepareToThrow();
    try {
        return body();
    } catch (const PendingJavaException&) {
        ensureJavaException(env);
    } catch (const std::exception& exception) {
        translate(env, exception);
    } catch (...) {
        translate(env);
    }
    return failureValue;
}

/// The same for native methods whose failure value is a text: made last, while the Java exception is pending.
template <typename Body>
jstring entryPoint(JNIEnv* env, const char* failureText, Body body) noexcept {
    jstring result = entryPoint(env, jstring{}, body);
    return result != nullptr ? result : env->NewStringUTF(failureText);
}

/// The same for native methods that return nothing.
template <typename Body>
void entryPoint(JNIEnv* env, Body body) noexcept {
    entryPoint(env, nullptr, [&]() -> std::nullptr_t {
        body();
        return nullptr;
    });
}

}  // namespace talvern::bridge
