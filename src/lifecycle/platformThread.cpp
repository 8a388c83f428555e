#include "lifecycle/platformThread.h"

#include <atomic>
#include <chrono>
#include <jvmti.h>
#include <thread>

namespace talvern::bridge {

namespace {

/// How many uses of the JVM are under way; the highest bit says that no more may begin.
std::atomic<unsigned> uses{0};
constexpr unsigned endHasBegun = 1U << 31;

/// Several if a callback leads to another report on its own thread.
thread_local unsigned usesByThisThread = 0;

/// Comes before the JVM stops its threads, and holds its end up.
void JNICALL onVmDeath(jvmtiEnv*, JNIEnv*) {
    using std::chrono::steady_clock;
    uses |= endHasBegun;
    const auto deadline = steady_clock::now() + std::chrono::seconds{5};
    while ((uses & ~endHasBegun) > usesByThisThread && steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
}

class ExitWatch {
  public:
    ExitWatch() = default;
    ~ExitWatch() { uses |= endHasBegun; }
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
        const JvmUse use;
        // Not attached: the JVM is gone, and an older one would block; or someone else has detached it.
        if (vm_ != nullptr && use.isAllowed() && isAttached(vm_)) vm_->DetachCurrentThread();
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

JvmUse::JvmUse() noexcept {
    unsigned now = uses;
    while ((now & endHasBegun) == 0 && !uses.compare_exchange_weak(now, now + 1)) {
    }
    isAllowed_ = (now & endHasBegun) == 0;
    if (isAllowed_) ++usesByThisThread;
}

JvmUse::~JvmUse() {
    if (!isAllowed_) return;
    --usesByThisThread;
    --uses;
}

void watchEndOf(JavaVM* vm) {
    jvmtiEnv* tools = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&tools), JVMTI_VERSION_1_1) != JNI_OK) return;
    jvmtiEventCallbacks callbacks{};
    callbacks.VMDeath = onVmDeath;
    tools->SetEventCallbacks(&callbacks, sizeof callbacks);
    tools->SetEventNotificationMode(JVMTI_ENABLE, JVMTI_EVENT_VM_DEATH, nullptr);
}

JNIEnv* attachCurrentThread(JavaVM* vm) {
    // Made by the first report: what the platform made before is destroyed after it.
    static const ExitWatch watch;
    if (threadEnds) return nullptr;
    const bool wasAttached = isAttached(vm);
    void* env = nullptr;
    vm->AttachCurrentThreadAsDaemon(&env, nullptr);
    if (env != nullptr && !wasAttached) detacher.arm(vm);
    return static_cast<JNIEnv*>(env);
}

}  // namespace talvern::bridge
