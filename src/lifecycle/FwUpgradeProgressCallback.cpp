#include "lifecycle/FwUpgradeProgressCallback.h"

#include <algorithm>
#include <mutex>
#include <string>

#include "bridge/marshalling.h"
#include "lifecycle/platformThread.h"

JavaVM* g_vm = nullptr;
jobject sJCallback = nullptr;
FwUpgradeProgressCallback* sFwCallback = nullptr;

namespace talvern::bridge {

namespace {

/// Guards the process-wide variables. Never held while Java code runs: that may start another upgrade.
std::mutex stateMutex;

JavaVM* vmOfRegisteredCallback() {
    const std::lock_guard lock{stateMutex};
    return sJCallback == nullptr ? nullptr : g_vm;
}

/// A reference of the report's own: another upgrade may replace the global one at any time.
jobject toLocalReference(JNIEnv* env) {
    const std::lock_guard lock{stateMutex};
    return notNull(env->NewLocalRef(sJCallback));
}

/// The local references of one report: a platform thread never returns to Java, which would free them.
class LocalFrame {
  public:
    explicit LocalFrame(JNIEnv* env) : env_{env} {
        if (env->PushLocalFrame(16) != 0) throw PendingJavaException{};
    }
    ~LocalFrame() { env_->PopLocalFrame(nullptr); }
    LocalFrame(const LocalFrame&) = delete;
    LocalFrame& operator=(const LocalFrame&) = delete;

  private:
    JNIEnv* env_;
};

/// Takes the exception that an earlier report's callback has left pending out of the way of this report's
/// calls, and puts it back afterwards.
class SetAside {
  public:
    explicit SetAside(JNIEnv* env) : env_{env}, exception_{env->ExceptionOccurred()} { env->ExceptionClear(); }
    ~SetAside() {
        if (exception_ == nullptr) return;
        env_->ExceptionClear();
        env_->Throw(exception_);
        env_->DeleteLocalRef(exception_);
    }
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;

  private:
    JNIEnv* env_;
    jthrowable exception_;
};

struct Classes {
    jclass callback{}, code{};
};

constexpr auto callbackName = "com/kvo/talvern/firmwaremanager/FirmwareManagerUtils$UpgradeCallback";
constexpr Literal codeName{"com/kvo/talvern/firmwaremanager/UpgradeCode"};
using UpgradeCodes = JavaEnum<codeName>;

jclass loadClass(JNIEnv* env, jobject loader, std::string name) {
    std::replace(name.begin(), name.end(), '/', '.');
    jstring javaName = toJavaString(env, name);
    jobject found = call<"loadClass", "(Ljava/lang/String;)Ljava/lang/Class;">(env, loader, javaName);
    return static_cast<jclass>(notNull(found));
}

/// The classes that `callback` itself was compiled with; a report to anything that is no callback is dropped.
/// On a platform thread FindClass asks the system class loader, which may not know them, or know other
/// classes of the same names.
Classes classesOf(JNIEnv* env, jobject callback) {
    Classes found;
    found.callback = env->FindClass(callbackName);
    if (found.callback != nullptr && env->IsInstanceOf(callback, found.callback) == JNI_TRUE) {
        found.code = env->FindClass(codeName.text);
        if (found.code != nullptr) return found;
    }
    env->ExceptionClear();
    jobject loader = call<"getClassLoader", "()Ljava/lang/ClassLoader;">(env, classOf(env, callback));
    found.callback = loadClass(env, loader, callbackName);
    found.code = loadClass(env, loader, codeName.text);
    if (env->IsInstanceOf(callback, found.callback) != JNI_TRUE) throw PendingJavaException{};
    return found;
}

void report(JNIEnv* env, jint done, jint total, FwUpgradeCode code) {
    const LocalFrame frame{env};
    jobject callback = toLocalReference(env);
    const Classes classes = classesOf(env, callback);
    const Method<"progress", "(IILcom/kvo/talvern/firmwaremanager/UpgradeCode;)V"> progress{env, classes.callback};
    const UpgradeCodes codes{env, classes.code};
    jobject javaCode = notNull(env->GetObjectArrayElement(codes.constants(), static_cast<jint>(code)));
    progress(callback, done, total, javaCode);
}

}  // namespace

firmwareManagerUtils::UpgradeCallback* registerCallback(JNIEnv* env, jobject callback) {
    const std::lock_guard lock{stateMutex};
    if (g_vm == nullptr) {
        JavaVM* vm = nullptr;
        if (env->GetJavaVM(&vm) == 0) {
            sFwCallback = new FwUpgradeProgressCallback;
            g_vm = vm;
            watchEndOf(vm);
        }
    }
    if (sJCallback != nullptr) env->DeleteGlobalRef(sJCallback);
    sJCallback = env->NewGlobalRef(callback);
    notNull(sJCallback);
    return sFwCallback;
}

firmwareManagerUtils::UpgradeCallback* registeredCallback() {
    const std::lock_guard lock{stateMutex};
    return sFwCallback;
}

}  // namespace talvern::bridge

using namespace talvern::bridge;

void FwUpgradeProgressCallback::progress(int done, int total, FwUpgradeCode code) {
    // Before the lock: the JVM may have stopped for ever a thread that holds it.
    const JvmUse use;
    if (!use.isAllowed()) return;
    JavaVM* vm = vmOfRegisteredCallback();
    JNIEnv* env = vm == nullptr ? nullptr : attachCurrentThread(vm);
    if (env == nullptr) return;
    const SetAside earlier{env};
    try {
        report(env, done, total, code);
    } catch (...) {
        // The report is dropped: the platform could do nothing about it, nor could Java on this thread.
        env->ExceptionClear();
    }
}
