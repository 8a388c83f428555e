#pragma once

#include <jni.h>

#include <exception>

#include "platform/messaging.h"

// Each overload writes a trace line, discards the Java exception that is pending, if any, and throws the Java
// exception that stands for the native one. True: it is pending now. False: its class was not found, or the
// JVM could not make it, and the JVM's error is pending instead.
// What the trace log throws is dropped. Lack of native memory comes out as std::bad_alloc; the frame of the
// native methods keeps it in.

/// For an exception of unknown type: a TalvernException.
JNIEXPORT bool handleException(JNIEnv* env);

/// A TalvernException with the text of `what()`, or that for an exception of unknown type if it is null.
JNIEXPORT bool handleException(JNIEnv* env, const std::exception& exception);

/// A Java ValidationException with the same two texts.
JNIEXPORT bool handleException(JNIEnv* env, const talvern::config::messaging::ValidationException& exception);

/// A Java ConfigChangeException with the same code, text and list.
JNIEXPORT bool handleException(JNIEnv* env, const talvern::config::messaging::ConfigChangeException& exception);

namespace talvern::bridge {

/// Throws a TalvernException with this message, and nothing else: no trace line, nothing discarded before.
/// False: the class was not found, and the JVM's error is pending.
bool throwTalvernException(JNIEnv* env, const char* message);

}  // namespace talvern::bridge
