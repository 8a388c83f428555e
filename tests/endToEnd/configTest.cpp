#include <gmock/gmock.h>

#include "support/jvm.h"

namespace {

TEST(Config, DeepTreesEndInAnExceptionWhateverTheStack) {
    EXPECT_EQ(runJava("ConfigCalls", "deepTrees"), "");
}

// TALVERN_TEST_SECONDS lengthens it from its two seconds.
TEST(Config, ThreadsWithOwnAndSharedReceiversLoseNothing) {
    EXPECT_EQ(runJava("ConfigCalls", "threads"), "");
}

}  // namespace
