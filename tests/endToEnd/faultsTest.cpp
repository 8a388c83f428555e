// With an appliance that is kept in a file.
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <set>
#include <sstream>

#include "support/jvm.h"

using testing::IsEmpty;

namespace {

using Names = std::set<std::string>;

const Names operations{
#include "operationNames.inc"
};

/// Without a text each fault has the name of its operation.
void setFaults(const Names& operationsWithFaults, const std::string& outcome, const std::string& text = "") {
    std::ofstream file{std::getenv("TALVERN_APPLIANCE")};
    file << "{\"faults\": [";
    for (const std::string& operation : operationsWithFaults) {
        file << (operation == *operationsWithFaults.begin() ? "\n" : ",\n") << R"({"operation": ")" << operation
             << R"(", "outcome": ")" << outcome << R"(", "text": ")" << (text.empty() ? operation : text) << "\"}";
    }
    file << "]}";
}

/// What each native method throws; empty for nothing.
std::vector<std::string> thrownByNatives() {
    std::istringstream lines{runJava("EachNative", "thrown")};
    std::vector<std::string> thrown;
    for (std::string line; std::getline(lines, line);) thrown.push_back(line);
    return thrown;
}

TEST(KeptFaults, OfEachOperationReachJavaThroughItsNativeMethod) {
    EXPECT_EQ(operations.size(), 113U);
    // A native method that calls two operations reaches the second when the first works.
    Names unseen = operations;
    for (std::size_t before = 0; before != unseen.size();) {
        before = unseen.size();
        setFaults(unseen, "exception");
        for (const std::string& thrown : thrownByNatives()) {
            const std::string prefix = "com.kvo.talvern.TalvernException: ";
            if (thrown.starts_with(prefix)) unseen.erase(thrown.substr(prefix.size()));
        }
    }
    EXPECT_THAT(unseen, IsEmpty());
}

TEST(KeptFaults, OfTheFileItselfEndEachOperation) {
    const std::string file = std::getenv("TALVERN_APPLIANCE");
    std::ofstream{file} << "{\n\"nodeName\": \"\xFF\"}";
    std::vector<std::string> thrown = thrownByNatives();
    std::erase_if(thrown, [&](const std::string& one) {
        return one.starts_with("com.kvo.talvern.TalvernException: " + file + ":2: syntax error");
    });
    EXPECT_THAT(thrown, testing::ElementsAre("")) << "all but Value._asXML, which asks no appliance";
}

TEST(KeptFaults, OfEachKindReachJavaAsWhatTheyAre) {
    const std::string package = "com.kvo.talvern.";
    const std::string unknown = package + "TalvernException: Unknown native exception";
    const struct {
        const char* outcome;
        std::string usually;    // what a native method throws
        std::string otherwise;  // what some throw: this, and more
        std::ptrdiff_t others;
    } kinds[]{
        {"validation", package + "TalvernException: planted", package + "config.", 6},
        {"change", package + "TalvernException: planted", package + "config.", 5},
        {"unknown", unknown, "", 0},
        {"failure", "", unknown, 1}};  // that for the log level has no other way to say it
    for (const auto& [outcome, usually, otherwise, others] : kinds) {
        SCOPED_TRACE(outcome);
        setFaults(operations, outcome, "planted");
        std::vector<std::string> thrown = thrownByNatives();
        EXPECT_GT(thrown.size(), operations.size());
        std::erase_if(thrown, [&, &usual = usually](const std::string& one) { return one.empty() || one == usual; });
        EXPECT_THAT(thrown, testing::SizeIs(others));
        EXPECT_THAT(thrown, testing::Each(testing::StartsWith(otherwise)));
    }
}

}  // namespace
