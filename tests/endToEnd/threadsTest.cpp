#include <gmock/gmock.h>

#include "support/jvm.h"

namespace {

TEST(Threads, EachOf64GetsTheAnswersToItsOwnCalls) { EXPECT_EQ(runJava("Threads", "mixedCalls"), ""); }

TEST(Threads, TwoUpgradesReportAtOnce) { EXPECT_EQ(runJava("Threads", "upgrades"), ""); }

// Must end in a report of the thread sanitizer; runs in a process of its own.
TEST(PlantedRace, DISABLED_Race) { runJava("MemoryFaults", "race"); }

}  // namespace
