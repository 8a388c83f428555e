#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

/// The current thread's environment in the JVM of this process, which runs with -Xcheck:jni. The first call
/// creates the JVM and loads the bridge; a thread that Java does not know is attached.
JNIEnv* javaEnv();

/// Whether the JVM checks the JNI calls. It writes a report of a millisecond for each that the contract
/// leaves unchecked, so that tests with very many calls run without.
bool isJniChecked();

/// The jar of the Java side.
std::string apiJar();

/// The bridge, as a file.
std::string bridgeLibrary();

/// The pending Java exception as "class: message", which is cleared; empty if there is none.
std::string takeException(JNIEnv* env);

/// A Java string.
jstring javaString(std::string_view text);

/// A Java `String[]`.
jobjectArray javaStrings(const std::vector<std::string>& texts);

/// A Java object as text: "null", its `toString()`, or the elements of an array.
std::string describe(jobject object);

/// The constant of the Java enum `className` with this ordinal.
jobject javaConstant(const char* className, jint ordinal);

/// What the static method `method` of the test class `className` returns, a String; the class is given
/// without "com/kvo/talvern/testing/". An exception is returned as text.
std::string runJava(const std::string& className, const char* method);
