// What -Xcheck:jni finds in one plausible call of each native method. Two kinds of warning are forced by the
// contract, which has no ExceptionCheck and keeps its local references; their number must not grow.
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "support/bridgeTest.h"

namespace {

using CheckedJniTest = BridgeTest;

/// What the JVM has written since the last call.
std::string newOutput() {
    static std::streamoff position = 0;
    std::ifstream log{TALVERN_JVM_LOG};
    log.seekg(position);
    std::stringstream output;
    output << log.rdbuf();
    position += static_cast<std::streamoff>(output.str().size());
    return output.str();
}

struct Counts {
    int unchecked = 0;
    int references = 0;
};

Counts countNewWarnings(const std::string& native) {
    Counts counts;
    std::istringstream lines{newOutput()};
    for (std::string line; std::getline(lines, line);) {
        const auto has = [&](const char* text) { return line.find(text) != std::string::npos; };
        if (has("JNI call made without checking exceptions")) {
            ++counts.unchecked;
        } else if (has("JNI local refs: ")) {
            ++counts.references;
        } else {
            EXPECT_FALSE(has("WARNING") || has("FATAL")) << native << ": " << line;
        }
    }
    return counts;
}

TEST_F(CheckedJniTest, FindsNothingButWhatTheContractForces) {
    const std::string file = TALVERN_SOURCE_FOLDER "/tests/reliability/checkedJniWarnings.txt";
    std::map<std::string, Counts> known;
    std::ifstream knownFile{file};
    for (std::string name; knownFile >> name;) knownFile >> known[name].unchecked >> known[name].references;

    std::set<std::string> found;  // sorted: reflection gives the methods in any order
    for (const NativeMethod& native : bridgeNatives()) {
        const LocalFrame frame;
        const std::string name = native.fullName();
        const std::vector<jvalue> arguments = plausibleArguments(native);
        newOutput();
        EXPECT_EQ(invokeThroughJvm(native, arguments), "");
        const auto [unchecked, references] = countNewWarnings(name);
        EXPECT_LE(unchecked, known[name].unchecked) << name;
        EXPECT_LE(references, known[name].references) << name;
        if (unchecked + references == 0) continue;
        found.insert(name + " " + std::to_string(unchecked) + " " + std::to_string(references) + "\n");
    }
    if (std::getenv("TALVERN_UPDATE_RECORDS") != nullptr) {
        std::ofstream records{file};
        for (const std::string& line : found) records << line;
    }
}

}  // namespace
