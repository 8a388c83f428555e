#include "platform/nodeName.h"

#include <algorithm>

#include "memory.h"

namespace {

constexpr int refused = 6;

struct State {
    std::string name = "talvern";
};
Memory<State> memory;

bool isHostName(const std::string& name) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '.';
    };
    return !name.empty() && name.size() <= 253 && name.front() != '-' && name.back() != '-' &&
           std::all_of(name.begin(), name.end(), isAllowed);
}

}  // namespace

namespace talvern::nodeName {

std::int32_t init() {
    memory.use([](State& state) { state = State{}; });
    return 0;
}

std::string get() {
    return memory.use([](State& state) { return state.name; });
}

std::int32_t set(const std::string& name) {
    if (!isHostName(name)) return refused;
    memory.use([&](State& state) { state.name = name; });
    return 0;
}

}  // namespace talvern::nodeName
