#include <pugixml.hpp>
#include <sstream>
#include <utility>
#include <vector>

#include "platform/value.h"

using talvern::config::ArrayValue;
using talvern::config::SimpleValue;
using talvern::config::StructValue;
using talvern::config::Value;

namespace {

/// Values whose elements still lack their content.
using Unwritten = std::vector<std::pair<const Value*, pugi::xml_node>>;

pugi::xml_node append(pugi::xml_node parent, const Value* value, Unwritten& unwritten) {
    const char* name = "null";
    if (dynamic_cast<const SimpleValue*>(value) != nullptr) name = "text";
    if (dynamic_cast<const StructValue*>(value) != nullptr) name = "struct";
    if (dynamic_cast<const ArrayValue*>(value) != nullptr) name = "array";
    pugi::xml_node element = parent.append_child(name);
    if (value != nullptr) unwritten.emplace_back(value, element);
    return element;
}

void fill(pugi::xml_node element, const Value& value, Unwritten& unwritten) {
    if (value.mu) element.append_attribute("mu") = true;
    if (const auto* simple = dynamic_cast<const SimpleValue*>(&value)) {
        element.text() = simple->value.c_str();
    } else if (const auto* structure = dynamic_cast<const StructValue*>(&value)) {
        for (const auto& [key, member] : structure->members) {
            append(element, member, unwritten).prepend_attribute("key") = key.c_str();
        }
    } else if (const auto* array = dynamic_cast<const ArrayValue*>(&value)) {
        for (const Value* child : array->elements) append(element, child, unwritten);
    }
}

}  // namespace

std::string Value::asXML() const {
    pugi::xml_document document;
    Unwritten unwritten;
    append(document.root(), this, unwritten);
    while (!unwritten.empty()) {
        const auto [value, element] = unwritten.back();
        unwritten.pop_back();
        fill(element, *value, unwritten);
    }
    std::ostringstream text;
    document.save(text, "  ", pugi::format_default | pugi::format_no_declaration);
    return text.str();
}
