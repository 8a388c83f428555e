#include "bridge/entryPoint.h"

#include <exception>
#include <new>

namespace talvern::bridge {

void prepareToThrow() noexcept {
    // Volatile, so that the compiler asks: the answer is kept where the exceptions of the thread are.
    [[maybe_unused]] const volatile int underWay = std::uncaught_exceptions();
    canThrow = true;
}

void ensureJavaException(JNIEnv* env) noexcept {
    if (env->ExceptionCheck() == JNI_FALSE) translate(env, std::bad_alloc{});
}

}  // namespace talvern::bridge
