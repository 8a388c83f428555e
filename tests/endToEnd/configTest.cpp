#include <gmock/gmock.h>

#include "support/jvm.h"

namespace {

TEST(Config, DeepTreesEndInAnExceptionWhateverTheStack) {
    EXPECT_EQ(runJava("Depth", "surprisesOfTheAppliance"), "");
}

}  // namespace
