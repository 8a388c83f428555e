// What a native method asks of the JVM, the platform and the trace log is on record, in its order: much of
// the order is promised, and each call costs time. TALVERN_UPDATE_RECORDS=1 in the environment rewrites the
// record.
#include <cstdlib>
#include <fstream>
#include <map>

#include "support/bridgeTest.h"

namespace {

using CallsTest = BridgeTest;

/// The calls as text, with what they look up or take.
std::string toText(const std::vector<JniTable::Call>& calls) {
    Texts steps;
    for (const JniTable::Call& call : calls) {
        std::string detail = call.detail;
        if (call.isLookup()) {
            detail = detail.substr(0, detail.find(' '));
            detail = detail.substr(detail.find_last_of("./") + 1);
        }
        steps.push_back(call.function + (detail.empty() ? "" : "(" + detail + ")"));
    }
    std::string text;
    for (auto step = steps.begin(); step != steps.end();) {
        const auto next = std::find_if(step, steps.end(), [&](const auto& other) { return other != *step; });
        text += " " + *step + (next - step > 1 ? "*" + std::to_string(next - step) : "");
        step = next;
    }
    return text;
}

TEST_F(CallsTest, EachNativeMethodMakesTheCallsOnRecord) {
    const std::string file = TALVERN_SOURCE_FOLDER "/tests/reliability/calls.txt";
    std::map<std::string, std::string> known, found;
    std::ifstream knownFile{file};
    for (std::string name; std::getline(knownFile, name, ':');) std::getline(knownFile, known[name]);

    std::ifstream log{jvmLog()};
    EXPECT_TRUE(log.is_open() || !isJniChecked()) << jvmLog();
    log.seekg(0, std::ios::end);
    for (const NativeMethod& native : bridgeNatives()) {
        const LocalFrame frame;
        for (int i = 0; i < 2; ++i) {  // the first upgrade differs from the others
            const std::vector<jvalue> arguments = plausibleArguments(native);
            table.restart();
            EXPECT_EQ(invokeThroughJvm(native, arguments), "") << native.name;
            found[native.name] = toText(table.calls());
        }
    }
    for (std::string line; std::getline(log, line);) EXPECT_EQ(line.find("WARNING"), std::string::npos) << line;
    if (std::getenv("TALVERN_UPDATE_RECORDS") != nullptr) {
        std::ofstream record{file};
        for (const auto& [name, calls] : found) record << name << ':' << calls << '\n';
    }
    for (const auto& [name, calls] : found) EXPECT_EQ(known[name], calls) << name;
    EXPECT_EQ(known.size(), found.size());
}

}  // namespace
