#include "bridge/entryPoint.h"

#include <new>

void ensureJavaException(JNIEnv* env) noexcept {
    if (env->ExceptionCheck() == JNI_FALSE) translate(env, std::bad_alloc{});
}
