#pragma once

#include <jni.h>

namespace talvern::bridge {

/// Whether the process has begun to end: from then on the JVM may block every thread that calls it.
bool processIsEnding();

/// The current thread's environment; null if Java cannot be reached, or if the thread or the process has
/// begun to end. A thread that Java does not know is attached as a daemon and stays so; when it ends, it is
/// detached.
JNIEnv* attachCurrentThread(JavaVM* vm);

}  // namespace talvern::bridge
