#pragma once

#include <jni.h>

namespace talvern::bridge {

/// A platform thread's use of the JVM, which blocks for ever every thread that is in it when it has ended. So
/// none begins any more once the JVM or the process has begun to end, and the JVM's end waits up to five
/// seconds for those under way, but for those of the thread that ends it.
class JvmUse {
  public:
    JvmUse() noexcept;
    ~JvmUse();
    JvmUse(const JvmUse&) = delete;
    JvmUse& operator=(const JvmUse&) = delete;

    /// Whether the JVM may be called.
    [[nodiscard]] bool isAllowed() const { return isAllowed_; }

  private:
    bool isAllowed_;
};

/// Asks the JVM to say when it begins to end. One without a tool interface does not: threads keep away from
/// it only when the process runs its exit handlers, which is too late for some.
void watchEndOf(JavaVM* vm);

/// The current thread's environment, within a use of the JVM; null if Java cannot be reached, or if the
/// thread has begun to end. A thread that Java does not know is attached as a daemon and stays so; when it
/// ends, it is detached.
JNIEnv* attachCurrentThread(JavaVM* vm);

}  // namespace talvern::bridge
