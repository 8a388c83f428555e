// Each of these must end in a report of a sanitizer. They run one at a time, in a process of their own, in
// the sanitized build only.
#include <gmock/gmock.h>

#include "support/jvm.h"

namespace {

void run(const char* fault) {
    jclass faults = javaEnv()->FindClass("com/kvo/talvern/testing/MemoryFaults");
    javaEnv()->CallStaticVoidMethod(faults, javaEnv()->GetStaticMethodID(faults, fault, "()V"));
}

TEST(PlantedMemoryFault, DISABLED_Leak) { run("losesMemory"); }
TEST(PlantedMemoryFault, DISABLED_Overrun) { run("writesBeyond"); }
TEST(PlantedMemoryFault, DISABLED_Overflow) { run("overflows"); }

}  // namespace
