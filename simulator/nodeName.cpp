#include "platform/nodeName.h"

#include "addresses.h"
#include "memory.h"

namespace {

constexpr int refused = 6;

struct State {
    std::string name = "talvern";
};
Memory<State> memory;

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
