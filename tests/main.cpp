#include <gmock/gmock.h>

// What a JVM inside a sanitized process needs: its own use of SIGSEGV stays untouched, and what it keeps for
// ever is no leak. Allocation stacks are kept to three frames, so that the suppression hides what the JVM
// allocates but not what a native method does, although each of these is called by the JVM.
extern "C" {
const char* __asan_default_options() { return "handle_segv=0:malloc_context_size=3"; }
const char* __ubsan_default_options() { return "print_stacktrace=1"; }
const char* __lsan_default_options() { return "print_suppressions=0"; }
const char* __lsan_default_suppressions() {
    return "leak:libjvm.so\n"
           "leak:libjava.so\n"
           "leak:libjimage.so\n"
           "leak:libzip.so\n"
           "leak:libz.so\n";
}
const char* __tsan_default_options() { return "handle_segv=0:report_signal_unsafe=0"; }
const char* __tsan_default_suppressions() {
    return "race:libjvm.so\n"
           "mutex:libjvm.so\n"
           "deadlock:libjvm.so\n"
           "thread:libjvm.so\n";
}
}

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
