// Each of these must end in a report of a sanitizer. They run one at a time, in a process of their own, in
// the sanitized build only.
#include "support/bridgeTest.h"

namespace {

class PlantedMemoryFault : public BridgeTest {
  protected:
    void run(const char* name) {
        plantedNatives();  // loads the library
        jclass javaClass = env->FindClass("com/kvo/talvern/testing/MemoryFaults");
        env->CallVoidMethod(env->AllocObject(javaClass), env->GetMethodID(javaClass, name, "()V"));
    }
};

TEST_F(PlantedMemoryFault, DISABLED_Leak) { run("_losesMemory"); }
TEST_F(PlantedMemoryFault, DISABLED_Overrun) { run("_writesBeyond"); }
TEST_F(PlantedMemoryFault, DISABLED_Overflow) { run("_overflows"); }

}  // namespace
