#include "platform/servicesUtils.h"

#include <set>
#include <string>

#include "memory.h"

namespace {

constexpr int notFound = 2;
constexpr int alreadyStarted = 3;
constexpr int refused = 6;

const std::set<std::string> tests{"database", "network", "storage"};

struct State {
    std::set<std::string> started;
};
Memory<State> memory;

}  // namespace

namespace talvern::servicesUtils {

std::int32_t startTest(const char* name, std::int32_t interval) {
    if (!tests.contains(name)) return notFound;
    if (interval <= 0) return refused;
    return memory.use([&](State& state) { return state.started.emplace(name).second ? 0 : alreadyStarted; });
}

std::int32_t stopTest(const char* name) {
    return memory.use([&](State& state) { return state.started.erase(name) == 0 ? notFound : 0; });
}

std::int32_t performTest(const char* name, std::int32_t count) {
    if (!tests.contains(name)) return notFound;
    return count <= 0 ? refused : 0;
}

}  // namespace talvern::servicesUtils
