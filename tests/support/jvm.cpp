#include "support/jvm.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// Where the bridge lies: the environment may name another one than this build's.
const char* libraryFolder() {
    const char* folder = std::getenv("TALVERN_LIBRARY_FOLDER");
    return folder == nullptr ? TALVERN_LIBRARY_FOLDER : folder;
}

JavaVM* createJvm() {
    char classPath[] = "-Djava.class.path=" TALVERN_API_JAR ":" TALVERN_TESTS_JAR;
    std::string libraryPath = "-Dtalvern.library.path=";
    libraryPath += libraryFolder();
    char planted[] = "-Dtalvern.planted.library=" TALVERN_PLANTED_LIBRARY;
    std::string logFile = "-XX:LogFile=" TALVERN_JVM_LOG;
    if (!isJniChecked()) logFile += ".unchecked";
    JavaVMOption options[] = {
        {classPath, nullptr},
        {libraryPath.data(), nullptr},
        {planted, nullptr},
        {const_cast<char*>("-Xmx2g"), nullptr},
        // What -Xcheck:jni finds goes to a file: it would drown everything else.
        {const_cast<char*>("-XX:+UnlockDiagnosticVMOptions"), nullptr},
        {const_cast<char*>("-XX:-DisplayVMOutput"), nullptr},
        {const_cast<char*>("-XX:+LogVMOutput"), nullptr},
        {logFile.data(), nullptr},
        {const_cast<char*>("-Xcheck:jni"), nullptr},
    };
    const jint count = std::size(options) - (isJniChecked() ? 0 : 1);  // the last one asks for the checks
    JavaVMInitArgs arguments{JNI_VERSION_1_8, count, options, JNI_FALSE};
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;
    if (JNI_CreateJavaVM(&vm, reinterpret_cast<void**>(&env), &arguments) != JNI_OK) {
        std::fputs("no JVM\n", stderr);
        std::abort();
    }
    return vm;
}

jobject callStatic(const char* className, const char* method, const char* signature, jobject argument) {
    JNIEnv* env = javaEnv();
    jclass javaClass = env->FindClass(className);
    return env->CallStaticObjectMethod(javaClass, env->GetStaticMethodID(javaClass, method, signature),
                                       argument);
}

std::string toText(JNIEnv* env, jstring string) {
    if (string == nullptr) return "null";
    const char* chars = env->GetStringUTFChars(string, nullptr);
    std::string text{chars};
    env->ReleaseStringUTFChars(string, chars);
    return text;
}

}  // namespace

JNIEnv* javaEnv() {
    static JavaVM* const vm = createJvm();
    JNIEnv* env = nullptr;
    vm->AttachCurrentThreadAsDaemon(reinterpret_cast<void**>(&env), nullptr);
    return env;
}

std::string apiJar() { return TALVERN_API_JAR; }

std::string bridgeLibrary() { return std::string{libraryFolder()} + "/libtalvernjni.so"; }

std::string takeException(JNIEnv* env) {
    jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) return {};
    env->ExceptionClear();
    jclass throwable = env->FindClass("java/lang/Throwable");
    auto* message = static_cast<jstring>(
        env->CallObjectMethod(exception, env->GetMethodID(throwable, "getMessage", "()Ljava/lang/String;")));
    jclass javaClass = env->FindClass("java/lang/Class");
    auto* name = static_cast<jstring>(env->CallObjectMethod(
        env->GetObjectClass(exception), env->GetMethodID(javaClass, "getName", "()Ljava/lang/String;")));
    return toText(env, name) + ": " + toText(env, message);
}

jstring javaString(std::string_view text) { return javaEnv()->NewStringUTF(std::string{text}.c_str()); }

jobjectArray javaStrings(const std::vector<std::string>& texts) {
    JNIEnv* env = javaEnv();
    const auto length = static_cast<jsize>(texts.size());
    jobjectArray array = env->NewObjectArray(length, env->FindClass("java/lang/String"), nullptr);
    for (jsize i = 0; i < length; ++i) {
        env->SetObjectArrayElement(array, i, javaString(texts[static_cast<std::size_t>(i)]));
    }
    return array;
}

std::string describe(jobject object) {
    return toText(javaEnv(),
                  static_cast<jstring>(callStatic("com/kvo/talvern/testing/Natives", "describe",
                                                  "(Ljava/lang/Object;)Ljava/lang/String;", object)));
}

jobject javaConstant(const char* className, jint ordinal) {
    const std::string signature = std::string{"()[L"} + className + ";";
    auto* values = static_cast<jobjectArray>(callStatic(className, "values", signature.c_str(), nullptr));
    return javaEnv()->GetObjectArrayElement(values, ordinal);
}

std::string runJava(const std::string& className, const char* method) {
    JNIEnv* env = javaEnv();
    jclass javaClass = env->FindClass(("com/kvo/talvern/testing/" + className).c_str());
    jmethodID id = env->GetStaticMethodID(javaClass, method, "()Ljava/lang/String;");
    auto* result = static_cast<jstring>(env->CallStaticObjectMethod(javaClass, id));
    const std::string exception = takeException(env);
    return exception.empty() ? toText(env, result) : exception;
}

bool isJniChecked() { return std::getenv("TALVERN_UNCHECKED_JNI") == nullptr; }
