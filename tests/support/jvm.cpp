#include "support/jvm.h"

#include <cstdlib>

#include "support/startJvm.h"

namespace {

/// Where the bridge lies: the environment may name another one than this build's.
const char* libraryFolder() {
    const char* folder = std::getenv("TALVERN_LIBRARY_FOLDER");
    return folder == nullptr ? TALVERN_LIBRARY_FOLDER : folder;
}

JavaVM* createJvm() {
    std::vector<std::string> options{
        std::string{"-Djava.class.path="} + TALVERN_API_JAR + ":" TALVERN_TESTS_JAR,
        std::string{"-Dtalvern.library.path="} + libraryFolder(),
        std::string{"-Dtalvern.planted.library="} + TALVERN_PLANTED_LIBRARY,
        std::string{"-Dtalvern.stackFactor="} + TALVERN_STACK_FACTOR,
        "-Xmx2g",
    };
    if (isJniChecked()) {  // what is found goes to a file: it would drown everything else
        options.insert(
            options.end(), {"-Xcheck:jni", "-XX:+UnlockDiagnosticVMOptions", "-XX:-DisplayVMOutput", "-XX:+LogVMOutput",
                            "-XX:LogFile=" + jvmLog()});
    }
    JavaVM* vm = nullptr;
    startJvm(options)->GetJavaVM(&vm);
    return vm;
}

std::string toText(jobject object) {
    JNIEnv* env = javaEnv();
    auto* string = static_cast<jstring>(object);
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

std::string bridgeLibrary() { return std::string{libraryFolder()} + "/libtalvernjni.so"; }

std::string jvmLog() { return std::string{libraryFolder()} + "/jvm.log"; }

std::string takeException(JNIEnv* env) {
    jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) return {};
    env->ExceptionClear();
    return describe(exception);
}

jstring javaString(std::string_view text) { return javaEnv()->NewStringUTF(std::string{text}.c_str()); }

jobjectArray javaStrings(const std::vector<std::string>& texts) {
    JNIEnv* env = javaEnv();
    const auto length = static_cast<jsize>(texts.size());
    jobjectArray array = env->NewObjectArray(length, env->FindClass("java/lang/String"), nullptr);
    jsize index = 0;
    for (const std::string& text : texts) env->SetObjectArrayElement(array, index++, javaString(text));
    return array;
}

std::string describe(jobject object) {
    return toText(
        callStatic("com/kvo/talvern/testing/Natives", "describe", "(Ljava/lang/Object;)Ljava/lang/String;", object));
}

jobject javaConstant(const std::string& className, jint ordinal) {
    jobject values = callStatic(className, "values", "()[L" + className + ";");
    return javaEnv()->GetObjectArrayElement(static_cast<jobjectArray>(values), ordinal);
}

std::string runJava(const std::string& className, const char* method) {
    jobject result = callStatic("com/kvo/talvern/testing/" + className, method, "()Ljava/lang/String;");
    const std::string exception = takeException(javaEnv());
    return exception.empty() ? toText(result) : exception;
}

bool isJniChecked() { return std::getenv("TALVERN_CHECK_JNI") != nullptr; }
