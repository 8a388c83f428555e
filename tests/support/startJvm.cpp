#include "startJvm.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <initializer_list>
#include <unistd.h>

namespace {

[[noreturn]] void stop(const std::string& message) {
    std::fprintf(stderr, "no JVM: %s\n", message.c_str());
    std::exit(1);
}

std::string jvmLibrary() {
    const char* home = std::getenv("JAVA_HOME");
    if (home == nullptr) return TALVERN_JVM_LIBRARY;
    const char* kind = std::getenv("TALVERN_JVM");
    if (kind == nullptr) kind = "server";
    for (const char* folder : {"/lib/", "/jre/lib/amd64/", "/jre/lib/aarch64/"}) {  // the last two in Java 8
        std::string library = std::string{home} + folder + kind + "/libjvm.so";
        if (access(library.c_str(), F_OK) == 0) return library;
    }
    stop(std::string{"JAVA_HOME is "} + home + ", which has no libjvm.so in a folder " + kind);
}

}  // namespace

JNIEnv* startJvm(std::vector<std::string> options) {
    void* library = dlopen(jvmLibrary().c_str(), RTLD_NOW | RTLD_GLOBAL);
    if (library == nullptr) stop(dlerror());
    const auto create = reinterpret_cast<decltype(&JNI_CreateJavaVM)>(dlsym(library, "JNI_CreateJavaVM"));
    std::vector<JavaVMOption> jvmOptions;
    jvmOptions.reserve(options.size());
    for (std::string& option : options) jvmOptions.push_back({option.data(), nullptr});
    JavaVMInitArgs arguments{JNI_VERSION_1_8, static_cast<jint>(options.size()), jvmOptions.data(), JNI_FALSE};
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;
    if (create == nullptr || create(&vm, reinterpret_cast<void**>(&env), &arguments) != JNI_OK) {
        stop("it does not start");
    }
    return env;
}
