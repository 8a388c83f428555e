// What -Xcheck:jni finds in one plausible call of each native method. Two kinds of warning are forced by the
// contract, which has no ExceptionCheck and keeps its local references; their number must not grow.
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "support/bridgeTest.h"

namespace {

class CheckedJniTest : public BridgeTest {
  protected:
    /// What the JVM has written since the last call.
    std::string newOutput() {
        std::ifstream log{TALVERN_JVM_LOG};
        log.seekg(position_);
        std::stringstream output;
        output << log.rdbuf();
        position_ += static_cast<std::streamoff>(output.str().size());
        return output.str();
    }

  private:
    std::streamoff position_ = 0;
};

struct Counts {
    int unchecked = 0;
    int references = 0;

    friend std::ostream& operator<<(std::ostream& stream, const Counts& counts) {
        return stream << counts.unchecked << ' ' << counts.references;
    }
};

Counts countWarnings(const std::string& output, const std::string& native) {
    Counts counts;
    std::istringstream lines{output};
    for (std::string line; std::getline(lines, line);) {
        if (line.find("JNI call made without checking exceptions") != std::string::npos) {
            ++counts.unchecked;
        } else if (line.find("JNI local refs: ") != std::string::npos) {
            ++counts.references;
        } else {
            EXPECT_EQ(line.find("WARNING"), std::string::npos) << native << ": " << line;
            EXPECT_EQ(line.find("FATAL"), std::string::npos) << native << ": " << line;
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
        const std::vector<jvalue> arguments = plausibleArguments(native);
        newOutput();
        EXPECT_EQ(invokeThroughJvm(native, arguments), "");
        const Counts counts = countWarnings(newOutput(), native.fullName());
        std::stringstream line;
        line << native.fullName() << ' ' << counts << '\n';
        if (counts.unchecked + counts.references > 0) found.insert(line.str());
        EXPECT_LE(counts.unchecked, known[native.fullName()].unchecked) << native.fullName();
        EXPECT_LE(counts.references, known[native.fullName()].references) << native.fullName();
    }
    if (std::getenv("TALVERN_UPDATE_RECORDS") != nullptr) {
        std::ofstream records{file};
        for (const std::string& line : found) records << line;
    }
}

}  // namespace
