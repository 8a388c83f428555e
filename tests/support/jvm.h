#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

/// The current thread's environment in the JVM of this process. The first call creates the JVM and loads the bridge;
/// a thread that Java does not know is attached.
JNIEnv* javaEnv();

/// Whether the JVM checks the JNI calls, which TALVERN_CHECK_JNI in the environment asks for. That takes time, so that
/// tests with very many calls run without.
bool isJniChecked();

/// Frees the local references that are made while it exists.
class LocalFrame {
  public:
    LocalFrame() { javaEnv()->PushLocalFrame(5000); }
    ~LocalFrame() { javaEnv()->PopLocalFrame(nullptr); }
    LocalFrame(const LocalFrame&) = delete;
    LocalFrame& operator=(const LocalFrame&) = delete;
};

/// The bridge, as a file.
std::string bridgeLibrary();

/// Where the JVM writes what it finds wrong with JNI calls, beside the bridge.
std::string jvmLog();

/// The pending Java exception as "class: message", which is cleared; empty if there is none.
std::string takeException(JNIEnv* env);

/// A Java string.
jstring javaString(std::string_view text);

/// A Java `String[]`.
jobjectArray javaStrings(const std::vector<std::string>& texts);

/// A Java object as text: "null", its `toString()`, or the elements of an array.
std::string describe(jobject object);

/// The constant of the Java enum `className` with this ordinal.
jobject javaConstant(const std::string& className, jint ordinal);

/// What the static method `method` of the test class `className` returns, a String; the class is given
/// without "com/kvo/talvern/testing/". An exception is returned as text.
std::string runJava(const std::string& className, const char* method);

/// A new object of the Java class.
template <typename... Arguments>
jobject newObject(const std::string& className, const char* signature = "()V", Arguments... arguments) {
    JNIEnv* env = javaEnv();
    jclass javaClass = env->FindClass(className.c_str());
    return env->NewObject(javaClass, env->GetMethodID(javaClass, "<init>", signature), arguments...);
}

/// The object that a method of the Java object returns.
template <typename... Arguments>
jobject callMethod(jobject object, const char* method, const char* signature, Arguments... arguments) {
    JNIEnv* env = javaEnv();
    jmethodID id = env->GetMethodID(env->GetObjectClass(object), method, signature);
    jobject result = env->CallObjectMethod(object, id, arguments...);
    env->ExceptionCheck();  // lest -Xcheck:jni writes a report
    return result;
}

/// The object that a static method of the Java class returns.
template <typename... Arguments>
jobject
callStatic(const std::string& className, const char* method, const std::string& signature, Arguments... arguments) {
    JNIEnv* env = javaEnv();
    jclass javaClass = env->FindClass(className.c_str());
    jmethodID id = env->GetStaticMethodID(javaClass, method, signature.c_str());
    jobject result = env->CallStaticObjectMethod(javaClass, id, arguments...);
    env->ExceptionCheck();
    return result;
}
