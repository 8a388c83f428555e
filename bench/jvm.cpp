#include "jvm.h"

#include <cstdlib>

#include "tests/support/startJvm.h"

namespace {

JNIEnv* createJvm(Jvm kind) {
    std::vector<std::string> options{
        "-Djava.class.path=" BENCH_CLASS_PATH,
        "-Dtalvern.library.path=" BENCH_LIBRARY_FOLDER,
        "-Dtalvern.bench.floor=" BENCH_FLOOR,
        "-XX:+UseSerialGC",
    };
    if (kind == Jvm::steady) {
        // A heap that is large enough for the largest case, and all there from the beginning: the kernel that
        // clears pages is not what is measured.
        options.insert(options.end(), {"-XX:+AlwaysPreTouch", "-Xms4g", "-Xmx4g", "-Xmn2g"});
    } else {
        options.emplace_back("-XX:TieredStopAtLevel=1");
    }
    return startJvm(options);
}

}  // namespace

Cases::Cases(Jvm kind) : env_{createJvm(kind)}, class_{env_->FindClass("com/kvo/talvern/bench/Cases")} {
    stopAfterException();
}

void Cases::makeReady(int index, int calls) const {
    env_->CallStaticVoidMethod(class_, method("makeReady", "(II)V"), index, calls);
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
    auto* text =
        static_cast<jstring>(env_->CallStaticObjectMethod(class_, method(name, "(I)Ljava/lang/String;"), index));
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
