#include <iostream>

#include "support/bridgeTest.h"
#include "sweeps/sweeps.h"

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class SweepTest : public BridgeTest {
  protected:
    void expectClean(const Findings& findings) {
        std::cout << findings.cases << " cases over " << bridgeNatives().size() << " native methods\n";
        EXPECT_GE(findings.cases, 1U);
        EXPECT_THAT(findings.faults, IsEmpty());
    }
};

auto faultOf(const char* native, const char* what) { return AllOf(HasSubstr(native), HasSubstr(what)); }

TEST_F(SweepTest, FindsThePlantedFaults) {
    EXPECT_THAT(sweepBindings(unboundNatives()).faults,
                Contains(faultOf("_isNotImplemented", "UnsatisfiedLinkError")));

    const Findings exceptions = sweepPlatformExceptions(plantedNatives());
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_swallowsException", "another exception")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_losesBuffer", "not given back")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_releasesTwice", "given back twice")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_releasesBackwards", "another order")));

    EXPECT_THAT(sweepNullArguments(plantedNatives()).faults,
                Contains(faultOf("_callsPlatformWithNull", "the platform was called")));

    EXPECT_THAT(sweepFailingCalls(plantedNatives()).faults,
                Contains(faultOf("_hidesMissingClass", "not the JVM's error")));
}

TEST_F(SweepTest, EveryNativeMethodBindsByItsName) { expectClean(sweepBindings(bridgeNatives())); }

TEST_F(SweepTest, EveryPlatformExceptionReachesJava) {
    expectClean(sweepPlatformExceptions(bridgeNatives()));
}

TEST_F(SweepTest, EveryNullArgumentIsAnswered) { expectClean(sweepNullArguments(bridgeNatives())); }

TEST_F(SweepTest, EveryFailedAllocationArrivesInJava) { expectClean(sweepFailingMemory(bridgeNatives())); }

TEST_F(SweepTest, AFailingTraceLogHidesNoException) { expectClean(sweepFailingTrace(bridgeNatives())); }

TEST_F(SweepTest, EveryFailedJniCallArrivesInJava) { expectClean(sweepFailingCalls(bridgeNatives())); }

TEST_F(SweepTest, HostileAnswersDoNoHarm) {
    using platform::Hostility;
    expectClean(
        sweepHostileAnswers(bridgeNatives(), {Hostility::empty, Hostility::least, Hostility::greatest}));
}

class LargeSweepTest : public LargeTest {};

TEST_F(LargeSweepTest, HugeAnswersDoNoHarm) {
    EXPECT_THAT(sweepHostileAnswers(bridgeNatives(), {platform::Hostility::huge}).faults, IsEmpty());
}

}  // namespace
