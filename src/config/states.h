#pragma once

#include <jni.h>

#include "platform/configService.h"

// States and return codes of the configuration service. They reach Java by name and come from Java by number.
// A lookup that fails throws PendingJavaException. Results are local references.

/// The Java constant; null if Java has none of this name, with its IllegalArgumentException pending.
JNIEXPORT jobject convertOpState(JNIEnv* env, talvern::config::Service::OpState state);

/// The same for an administrative state.
JNIEXPORT jobject convertAdminState(JNIEnv* env, talvern::config::Service::AdminState state);

/// The same for a return code.
JNIEXPORT jobject convertReturnCode(JNIEnv* env, talvern::config::Service::ReturnCode code);

/// The number that the Java constant's `getValue()` returns.
/// @throws std::invalid_argument  `state` is null
JNIEXPORT talvern::config::Service::OpState convertJOpState(JNIEnv* env, jobject state);

/// The same for an administrative state.
JNIEXPORT talvern::config::Service::AdminState convertJAdminState(JNIEnv* env, jobject state);

/// Stores `code` on the Java object that asked for the operation.
JNIEXPORT void setReturnCode(JNIEnv* env, jobject holder, talvern::config::Service::ReturnCode code);

/// Stores the Java constant of a return code there.
void storeReturnCode(JNIEnv* env, jobject holder, jobject javaCode);
