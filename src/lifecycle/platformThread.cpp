#include "lifecycle/platformThread.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <jvmti.h>
#include <memory>
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

/// Outlives `attached` below: whatever the thread still does then must not attach it again.
thread_local bool threadEnds = false;

bool isAttached(JavaVM* vm) {
    void* env = nullptr;
    return vm->GetEnv(&env, JNI_VERSION_1_8) == JNI_OK;
}

struct Detach {
    void operator()(JavaVM* vm) const {
        threadEnds = true;
        const JvmUse use;
        // Not attached: the JVM is gone, and an older one would block; or someone else has detached it.
        if (use.isAllowed() && isAttached(vm)) vm->DetachCurrentThread();
    }
};

/// What this thread was attached to here. Detached when the thread ends: the JVM would keep it for ever.
thread_local std::unique_ptr<JavaVM, Detach> attached;

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
    // By the first report: what the platform made before is destroyed after it.
    [[maybe_unused]] static const int watch = std::atexit([] { uses |= endHasBegun; });
    if (threadEnds) return nullptr;
    const bool wasAttached = isAttached(vm);
    void* env = nullptr;
    vm->AttachCurrentThreadAsDaemon(&env, nullptr);
    if (env != nullptr && !wasAttached && attached == nullptr) attached.reset(vm);
    return static_cast<JNIEnv*>(env);
}

}  // namespace talvern::bridge
