// The appliance that is kept in a file.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <sys/stat.h>

#include "platform/nodeName.h"
#include "platform/userManagerUtils.h"

using namespace talvern;
using testing::HasSubstr;
using testing::Not;

namespace {

const char* const file = std::getenv("TALVERN_APPLIANCE");

std::string fileText() {
    std::ifstream in{file};
    return {std::istreambuf_iterator<char>{in}, {}};
}

void writeFile(const std::string& text) { std::ofstream{file} << text; }

/// All tests of this program start with a factory-new appliance.
class KeptAppliance : public testing::Environment {
  public:
    void SetUp() override {
        if (file != nullptr) std::filesystem::remove(file);
    }
};
const testing::Environment* const keptAppliance =
    testing::AddGlobalTestEnvironment(new KeptAppliance);  // NOLINT: gtest deletes it

TEST(Kept, FileIsItsOwnersAndHoldsNoPassword) {
    std::filesystem::remove(file);
    EXPECT_EQ(userManagerUtils::addUser("operator", "correct horse"), 0);
    struct stat status {};
    ASSERT_EQ(stat(file, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    EXPECT_THAT(fileText(), HasSubstr("{\"name\": \"operator\", \"passwordHash\": \"$"));
    EXPECT_THAT(fileText(), Not(HasSubstr("correct horse")));
}

TEST(Kept, FileMayLeaveMostOut) {
    writeFile(R"({"nodeName": "rack-7"})");
    EXPECT_EQ(nodeName::get(), "rack-7");
    EXPECT_THAT(userManagerUtils::listUsers(), testing::ElementsAre("admin"));
}

}  // namespace
