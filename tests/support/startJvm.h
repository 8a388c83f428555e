#pragma once

#include <jni.h>

#include <string>
#include <vector>

/// Starts the JVM of `JAVA_HOME`, or else that of the JDK of the build, with these options; ends the process
/// with a message if there is none. `TALVERN_JVM=zero` takes the interpreter of `JAVA_HOME` that lies beside
/// its compiling JVM.
/// @return  the current thread's environment
JNIEnv* startJvm(std::vector<std::string> options);
