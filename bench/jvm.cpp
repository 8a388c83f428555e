#include "jvm.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

/// A heap that is large enough for the largest case and all there from the beginning: what is measured must not
/// be the kernel that clears pages.
JNIEnv* createJvm() {
    JavaVMOption options[] = {
        {const_cast<char*>("-Djava.class.path=" BENCH_CLASS_PATH), nullptr},
        {const_cast<char*>("-Dtalvern.library.path=" BENCH_LIBRARY_FOLDER), nullptr},
        {const_cast<char*>("-Dtalvern.bench.floor=" BENCH_FLOOR), nullptr},
        {const_cast<char*>("-XX:+UseSerialGC"), nullptr},
        {const_cast<char*>("-XX:+AlwaysPreTouch"), nullptr},
        {const_cast<char*>("-Xms4g"), nullptr},
        {const_cast<char*>("-Xmx4g"), nullptr},
        {const_cast<char*>("-Xmn2g"), nullptr},
    };
    JavaVMInitArgs arguments{JNI_VERSION_1_8, std::size(options), options, JNI_FALSE};
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;
    if (JNI_CreateJavaVM(&vm, reinterpret_cast<void**>(&env), &arguments) != JNI_OK) {
        std::fputs("no JVM\n", stderr);
        std::exit(1);
    }
    return env;
}

}  // namespace

Cases::Cases() : env_{createJvm()}, class_{env_->FindClass("com/kvo/talvern/bench/Cases")} {
    stopAfterException();
}

double Cases::javaBytes() const {
    return static_cast<double>(env_->CallStaticLongMethod(class_, method("javaBytes", "()J")));
}

jmethodID Cases::method(const char* name, const char* signature) const {
    jmethodID id = env_->GetStaticMethodID(class_, name, signature);
    stopAfterException();
    return id;
}

int Cases::callInt(const char* name) const { return env_->CallStaticIntMethod(class_, method(name, "()I")); }

int Cases::callInt(const char* name, int index) const {
    return env_->CallStaticIntMethod(class_, method(name, "(I)I"), index);
}

std::string Cases::callText(const char* name, int index) const {
    auto* text = static_cast<jstring>(
        env_->CallStaticObjectMethod(class_, method(name, "(I)Ljava/lang/String;"), index));
    stopAfterException();
    if (text == nullptr) return {};
    const char* chars = env_->GetStringUTFChars(text, nullptr);
    std::string copy{chars};
    env_->ReleaseStringUTFChars(text, chars);
    env_->DeleteLocalRef(text);
    return copy;
}

double Cases::callTime(const char* name, int index, Way way, int calls) const {
    const jlong time = env_->CallStaticLongMethod(class_, method(name, "(III)J"), index, way, calls);
    stopAfterException();
    return static_cast<double>(time);
}

void Cases::stopAfterException() const {
    if (env_->ExceptionCheck() == JNI_FALSE) return;
    env_->ExceptionDescribe();
    std::exit(1);
}
