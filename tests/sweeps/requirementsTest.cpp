// What the bridge needs of the Java side, told by the lookups of all tests together, is what its list says;
// and no native method is without a test.
#include <cstdlib>
#include <fstream>
#include <iterator>

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
            EXPECT_TRUE(testedNatives().contains(native.name)) << "no test calls " << native.fullName();
        }
        const std::string file = TALVERN_SOURCE_FOLDER "/src/bridge/requirements.txt";
        if (std::getenv("TALVERN_UPDATE_RECORDS") != nullptr) {
            std::ofstream list{file};
            for (const std::string& line : found) list << line << '\n';
        }
        Lines listed;
        std::ifstream list{file};
        for (std::string line; std::getline(list, line);) listed.insert(line);
        Lines differences;
        std::set_symmetric_difference(
            listed.begin(), listed.end(), found.begin(), found.end(), std::inserter(differences, differences.end()));
        for (const std::string& line : differences) {  // all of them: a matcher would print the first few
            ADD_FAILURE() << (listed.contains(line) ? "no longer needed: " : "not on record: ") << line
                          << "\nscripts/record rewrites " << file;
        }
    }
};

const testing::Environment* const requirementsTest =
    testing::AddGlobalTestEnvironment(new RequirementsTest);  // NOLINT: gtest deletes it

}  // namespace
