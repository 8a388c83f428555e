#include <set>
#include <string>

#include "memory.h"
#include "simulated.h"

namespace talvern::servicesUtils::simulated {

namespace {

constexpr int notFound = 2;
constexpr int alreadyStarted = 3;
constexpr int refused = 6;

const std::set<std::string> tests{"database", "network", "storage"};

auto& memory = Memory<std::set<std::string>>::make("startedTests");

}  // namespace

std::int32_t startTest(const char* name, std::int32_t interval) {
    if (!tests.contains(name)) return notFound;
    if (interval <= 0) return refused;
    return memory.change(
        [&](std::set<std::string>& started) { return started.emplace(name).second ? 0 : alreadyStarted; });
}

std::int32_t stopTest(const char* name) {
    return memory.change([&](std::set<std::string>& started) { return started.erase(name) == 0 ? notFound : 0; });
}

std::int32_t performTest(const char* name, std::int32_t count) {
    if (!tests.contains(name)) return notFound;
    return count <= 0 ? refused : 0;
}

}  // namespace talvern::servicesUtils::simulated
