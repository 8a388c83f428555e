#include "addresses.h"
#include "memory.h"
#include "simulated.h"

namespace talvern::nodeName::simulated {

namespace {

constexpr int refused = 6;

struct NodeName {
    std::string text = "talvern";
};

void fromJson(const json::Node& node, NodeName& name) { Reader::read(node, name.text); }
void toJson(json::Text& out, const NodeName& name) { out.addQuoted(name.text); }

auto& memory = Memory<NodeName>::make("nodeName");

}  // namespace

std::int32_t init() {
    memory.change([](NodeName& name) { name = {}; });
    return 0;
}

std::string get() {
    return memory.read([](const NodeName& name) { return name.text; });
}

std::int32_t set(const std::string& name) {
    if (!isHostName(name)) return refused;
    memory.change([&](NodeName& present) { present.text = name; });
    return 0;
}

}  // namespace talvern::nodeName::simulated
