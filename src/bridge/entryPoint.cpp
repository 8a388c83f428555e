#include "bridge/entryPoint.h"

#include <new>

namespace talvern::bridge {

void ensureJavaException(JNIEnv* env) noexcept {
    if (env->ExceptionCheck() == JNI_FALSE) translate(env, std::bad_alloc{});
}

}  // namespace talvern::bridge
