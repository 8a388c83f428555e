#include "valueJson.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace talvern::config {

namespace {

constexpr std::string_view flag = "@mu";
constexpr std::size_t depthLimit = 1'000;

/// A list or structure that still lacks its children.
struct Container {
    const json::Node* source;
    Value* value;
    std::size_t level;  ///< the root's is 1
};
using Unfilled = std::vector<Container>;

template <typename Kind>
std::unique_ptr<Value> empty(const json::Node& node, bool mu, std::size_t level, Unfilled& unfilled) {
    auto value = std::make_unique<Kind>(mu);
    unfilled.push_back({&node, value.get(), level});
    return value;
}

std::unique_ptr<Value> withoutChildren(const json::Node* node, std::size_t level, Unfilled& unfilled) {
    const json::Node* child = node->firstChild;
    const bool mu =
        node->kind == json::Kind::object && child != nullptr && child->next == nullptr && child->key == flag;
    if (mu) node = child;
    if (level > depthLimit && node->kind != json::Kind::null) {
        throw json::Problem{node->position, "is nested too deeply"};
    }
    switch (node->kind) {
        case json::Kind::null: return nullptr;
        case json::Kind::text: return std::make_unique<SimpleValue>(std::string{node->text}, mu);
        case json::Kind::list: return empty<ArrayValue>(*node, mu, level, unfilled);
        case json::Kind::object: return empty<StructValue>(*node, mu, level, unfilled);
        default: throw json::Problem{node->position, "must be a text, a list, an object or null"};
    }
}

/// A structure or list that is being written.
struct Open {
    std::vector<std::pair<const std::string*, const Value*>> children = {};  ///< each with its key, if it has one
    std::size_t written = 0;
    const char* end = "";
};

/// Writes a value, but for its children, which are to follow.
void begin(json::Text& out, const Value* value, std::vector<Open>& open) {
    if (value == nullptr) return out.add("null");
    if (open.size() == depthLimit) throw std::invalid_argument{"a value is nested too deeply, and can't be kept"};
    if (value->mu) out.add("{\"@mu\": ");
    if (const auto* simple = dynamic_cast<const SimpleValue*>(value)) {
        out.addQuoted(simple->value);
        if (value->mu) out.add("}");
        return;
    }
    Open container;
    if (const auto* structure = dynamic_cast<const StructValue*>(value)) {
        out.add("{");
        container.end = value->mu ? "}}" : "}";
        for (const auto& [key, member] : structure->members) container.children.emplace_back(&key, member);
    } else if (const auto* array = dynamic_cast<const ArrayValue*>(value)) {
        out.add("[");
        container.end = value->mu ? "]}" : "]";
        for (const Value* element : array->elements) container.children.emplace_back(nullptr, element);
    }
    open.push_back(std::move(container));
}

}  // namespace

void fromJson(const json::Node& node, std::unique_ptr<Value>& value) {
    Unfilled unfilled;
    value = withoutChildren(&node, 1, unfilled);
    while (!unfilled.empty()) {
        const auto [source, target, level] = unfilled.back();
        unfilled.pop_back();
        for (const json::Node* child = source->firstChild; child != nullptr; child = child->next) {
            std::unique_ptr<Value> childValue = withoutChildren(child, level + 1, unfilled);
            if (auto* structure = dynamic_cast<StructValue*>(target)) {
                structure->put(
                    std::string{child->key.substr(child->key.starts_with('@') ? 1 : 0)}, std::move(childValue));
            } else {
                static_cast<ArrayValue*>(target)->add(std::move(childValue));
            }
        }
    }
}

void toJson(json::Text& out, const std::unique_ptr<Value>& value) {
    std::vector<Open> open;
    begin(out, value.get(), open);
    while (!open.empty()) {
        Open& container = open.back();
        if (container.written == container.children.size()) {
            out.add(container.end);
            open.pop_back();
            continue;
        }
        const auto [key, child] = container.children[container.written++];
        if (container.written > 1) out.add(", ");
        if (key != nullptr) {
            out.addQuoted((key->starts_with('@') ? "@" : "") + *key);
            out.add(": ");
        }
        begin(out, child, open);
    }
}

}  // namespace talvern::config
