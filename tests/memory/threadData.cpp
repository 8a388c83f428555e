// Memory that lacks where the dynamic linker asks for it: for the thread-local data of a library that was
// loaded after the start, such as what the C++ runtime knows of a thread's exceptions.
#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <sys/auxv.h>

extern "C" void* __libc_malloc(std::size_t size);  // NOLINT: the C library's name

namespace {

[[gnu::tls_model("initial-exec")]] thread_local bool isUsedUp = false;
constexpr std::uintptr_t linkerSize = 0x80000;  // at least

}  // namespace

extern "C" {

/// Takes the place of the C library's, also for the dynamic linker.
void* malloc(std::size_t size) {
    const auto caller = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0));
    return isUsedUp && caller - getauxval(AT_BASE) < linkerSize ? nullptr : __libc_malloc(size);
}

/// For this thread, from now on.
JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_FirstException_useUpMemory(JNIEnv*, jclass) { isUsedUp = true; }
}
