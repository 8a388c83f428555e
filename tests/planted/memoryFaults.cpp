// What only a sanitizer sees.
#include <jni.h>

#include <cstddef>
#include <cstdlib>
#include <limits>

#define FAULT(name) JNIEXPORT void JNICALL Java_com_kvo_talvern_testing_MemoryFaults_##name(JNIEnv*, jclass)

extern "C" {

FAULT(losesMemory) {
    char* volatile lost = static_cast<char*>(std::malloc(4321));
    lost[0] = 1;
    lost = nullptr;
}

FAULT(writesBeyond) {
    volatile std::size_t size = 16;  // the compiler would see the overrun
    void* memory = std::malloc(size);
    static_cast<volatile char*>(memory)[16] = 1;
    std::free(memory);
}

FAULT(overflows) {
    volatile jint value = std::numeric_limits<jint>::max();
    value = value + 1;
}

FAULT(countsUnguarded) {
    static int count = 0;
    ++count;
}
}
