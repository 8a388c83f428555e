#include "lifecycle/platformThread.h"

#include <atomic>

namespace talvern::bridge {

namespace {

/// A JVM that has exited blocks every thread that calls it, for ever. Platform threads keep away from it once
/// the process ends, so that the platform can still wait for them.
std::atomic<bool> processEnds{false};

class ExitWatch {
  public:
    ExitWatch() = default;
    ~ExitWatch() { processEnds = true; }
    ExitWatch(const ExitWatch&) = delete;
    ExitWatch& operator=(const ExitWatch&) = delete;
    ExitWatch(ExitWatch&&) = delete;
    ExitWatch& operator=(ExitWatch&&) = delete;
};

/// Outlives the detacher below: whatever the thread still does then must not attach it again.
thread_local bool threadEnds = false;

bool isAttached(JavaVM* vm) {
    void* env = nullptr;
    return vm->GetEnv(&env, JNI_VERSION_1_8) == JNI_OK;
}

/// Detaches its thread when that ends: the JVM would keep an attached thread for ever.
class Detacher {
  public:
    Detacher() = default;
    ~Detacher() {
        threadEnds = true;
        // Not attached: the JVM is gone, and an older one would block; or someone else has detached it.
        if (vm_ != nullptr && !processEnds && isAttached(vm_)) vm_->DetachCurrentThread();
    }
    Detacher(const Detacher&) = delete;
    Detacher& operator=(const Detacher&) = delete;
    Detacher(Detacher&&) = delete;
    Detacher& operator=(Detacher&&) = delete;

    void arm(JavaVM* vm) { vm_ = vm; }

  private:
    JavaVM* vm_ = nullptr;
};

thread_local Detacher detacher;

}  // namespace

bool processIsEnding() { return processEnds; }

JNIEnv* attachCurrentThread(JavaVM* vm) {
    // Made by the first report: what the platform made before is destroyed after it.
    static const ExitWatch watch;
    if (processEnds || threadEnds) return nullptr;
    const bool wasAttached = isAttached(vm);
    void* env = nullptr;
    vm->AttachCurrentThreadAsDaemon(&env, nullptr);
    if (env != nullptr && !wasAttached) detacher.arm(vm);
    return static_cast<JNIEnv*>(env);
}

}  // namespace talvern::bridge
