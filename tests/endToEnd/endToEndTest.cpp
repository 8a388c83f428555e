#include <gmock/gmock.h>

#include "support/jvm.h"

namespace {

TEST(EndToEnd, EachOf64ThreadsGetsTheAnswersToItsOwnCalls) { EXPECT_EQ(runJava("Threads", "mixedCalls"), ""); }

TEST(EndToEnd, UpgradesReportAtOnce) { EXPECT_EQ(runJava("Threads", "upgrades"), ""); }

TEST(EndToEnd, AnyDepthOnAnyStackGivesAResultOrAClearException) { EXPECT_EQ(runJava("Depth", "surprises"), ""); }

// Must end in a report of the thread sanitizer; runs in a process of its own.
TEST(PlantedRace, DISABLED_Race) { runJava("MemoryFaults", "race"); }

}  // namespace
