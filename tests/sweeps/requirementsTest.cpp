// What the bridge needs of the Java side, told by the lookups of all tests together, is what its list says.
#include <cstdlib>
#include <fstream>

#include "support/bridgeTest.h"

namespace {

using Lines = std::set<std::string>;

class RequirementsTest : public testing::Environment {
  public:
    void TearDown() override {
        const std::string filter = GTEST_FLAG_GET(filter);
        if (filter != "*" && filter != "-Large*") return;  // some of the tests make some of the lookups
        Lines found = recordedRequirements();
        for (const NativeMethod& native : bridgeNatives()) {
            found.insert("native " + native.className + " " + native.name + " " + native.signature);
        }
        const std::string file = TALVERN_SOURCE_FOLDER "/src/bridge/requirements.txt";
        if (std::getenv("TALVERN_UPDATE_RECORDS") != nullptr) {
            std::ofstream list{file};
            for (const std::string& line : found) list << line << '\n';
        }
        Lines listed;
        std::ifstream list{file};
        for (std::string line; std::getline(list, line);) listed.insert(line);
        EXPECT_THAT(listed, testing::ContainerEq(found)) << "TALVERN_UPDATE_RECORDS=1 rewrites " << file;
    }
};

const testing::Environment* const requirementsTest =
    testing::AddGlobalTestEnvironment(new RequirementsTest);  // NOLINT: gtest deletes it

}  // namespace
