#pragma once

#include <algorithm>
#include <concepts>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "json.h"

// How the appliance's state becomes the text of its file, and comes out of it. A record names its members
// once, for both ways:
//
//     template <typename Members>
//     void describe(Members& members, Sensor& sensor) {
//         members("name", sensor.name);
//         members("isOk", sensor.isOk);
//     }
//
// A type that is no record may have a `fromJson` and a `toJson` of its own; an enum has a `namesOf`, which
// lists the names of its constants from 0 on.

/// Reads the members of an object. What they leave out stays as it is; what they should not hold is a
/// json::Problem.
class Reader {
  public:
    static constexpr bool isReading = true;

    explicit Reader(const json::Node& object) : object_{object} {
        expect(object, json::Kind::object, "must be an object");
        known_.reserve(16);
    }

    /// Reads the member of this name, if there is one.
    template <typename Value>
    void operator()(std::string_view name, Value& value) {
        known_.push_back(name);
        const json::Node* member = unread_ == 0 ? nullptr : object_.firstChild;
        while (member != nullptr && member->key != name) member = member->next;
        if (member == nullptr) return;
        --unread_;
        try {
            read(*member, value);
        } catch (json::Problem& problem) {
            problem.within(std::string{name});
            throw;
        }
    }

    void require(bool holds, std::string_view reason) const {
        if (!holds) throw json::Problem{object_.position, std::string{reason}};
    }

    /// Refuses members that have not been read.
    void finish() const {
        if (unread_ == 0) return;
        forEachChild(object_, [&](const json::Node& member) {
            if (std::find(known_.begin(), known_.end(), member.key) != known_.end()) return;
            std::string names;
            for (const std::string_view name : known_) names += (names.empty() ? "" : ", ") + std::string{name};
            throw json::Problem{member.position, "is not known here; known are " + names};
        });
    }

    static void expect(const json::Node& node, json::Kind kind, const char* otherwise) {
        if (node.kind != kind) throw json::Problem{node.position, otherwise};
    }

    /// Calls `action` with each child of a list or object. A problem there says in which.
    template <typename Action>
    static void forEachChild(const json::Node& parent, Action action) {
        std::size_t index = 0;
        for (const json::Node* child = parent.firstChild; child != nullptr; child = child->next, ++index) {
            try {
                action(*child);
            } catch (json::Problem& problem) {
                const bool isElement = parent.kind == json::Kind::list;
                problem.within(isElement ? '[' + std::to_string(index) + ']' : std::string{child->key});
                throw;
            }
        }
    }

    static void read(const json::Node& node, std::string& value) {
        expect(node, json::Kind::text, "must be a text");
        value = node.text;
    }

    static void read(const json::Node& node, bool& value) {
        expect(node, json::Kind::boolean, "must be true or false");
        value = node.number != 0;
    }

    template <std::integral Number>
    static void read(const json::Node& node, Number& value) {
        using Limits = std::numeric_limits<Number>;
        if (node.kind != json::Kind::integer || !std::in_range<Number>(node.number)) {
            throw json::Problem{
                node.position, "must be a whole number from " + std::to_string(Limits::min()) + " to " +
                                   std::to_string(Limits::max())};
        }
        value = static_cast<Number>(node.number);
    }

    /// A text in an array, which needs no NUL at its end.
    template <std::size_t Size>
    static void read(const json::Node& node, char (&value)[Size]) {
        std::string text;
        read(node, text);
        if (text.size() > Size) {
            throw json::Problem{node.position, "must have at most " + std::to_string(Size) + " bytes"};
        }
        text.resize(Size);
        std::copy(text.begin(), text.end(), value);
    }

    template <typename Value>
    static void read(const json::Node& node, std::optional<Value>& value) {
        value.reset();
        if (node.kind != json::Kind::null) read(node, value.emplace());
    }

    template <typename Value>
    static void read(const json::Node& node, std::vector<Value>& list) {
        expect(node, json::Kind::list, "must be a list");
        list.clear();
        list.reserve(static_cast<std::size_t>(node.number));
        forEachChild(node, [&](const json::Node& child) { read(child, list.emplace_back()); });
    }

    static void read(const json::Node& node, std::set<std::string>& set) {
        std::vector<std::string> list;
        read(node, list);
        set = {list.begin(), list.end()};
    }

    template <typename Value>
    static void read(const json::Node& node, std::map<std::string, Value>& table) {
        expect(node, json::Kind::object, "must be an object");
        table.clear();
        forEachChild(node, [&](const json::Node& child) { read(child, table[std::string{child.key}]); });
    }

    template <typename Value>
    static void read(const json::Node& node, Value& value) {
        if constexpr (std::is_enum_v<Value>) {
            readName(node, value);
        } else if constexpr (requires { fromJson(node, value); }) {
            fromJson(node, value);
        } else {
            Reader members{node};
            describe(members, value);
            members.finish();
        }
    }

  private:
    template <typename Enum>
    static void readName(const json::Node& node, Enum& value) {
        std::string otherwise = "must be one of";
        std::underlying_type_t<Enum> number = 0;
        for (const char* name : namesOf(Enum{})) {
            if (node.kind == json::Kind::text && node.text == name) {
                value = Enum{number};
                return;
            }
            otherwise += std::string{number++ == 0 ? " " : ", "} + name;
        }
        throw json::Problem{node.position, otherwise};
    }

    const json::Node& object_;
    std::int64_t unread_ = object_.number;
    std::vector<std::string_view> known_ = {};
};

/// Writes the members of an object.
class Writer {
  public:
    static constexpr bool isReading = false;

    explicit Writer(json::Text& text) : text_{text} {}

    template <typename Value>
    void operator()(std::string_view name, Value& value) {
        text_.beginMember(name);
        write(text_, value);
    }

    static void write(json::Text& text, std::string& value) { text.addQuoted(value); }

    template <std::integral Number>
    static void write(json::Text& text, Number& value) {
        text.add(std::to_string(value));
    }

    static void write(json::Text& text, bool& value) { text.add(value ? "true" : "false"); }

    template <std::size_t Size>
    static void write(json::Text& text, char (&value)[Size]) {
        text.addQuoted({value, std::find(value, value + Size, '\0')});
    }

    template <typename Value>
    static void write(json::Text& text, std::optional<Value>& value) {
        value ? write(text, *value) : text.add("null");
    }

    template <typename Value>
    static void write(json::Text& text, std::vector<Value>& list) {
        text.open('[');
        for (Value& element : list) {
            text.beginElement();
            write(text, element);
        }
        text.close(']');
    }

    static void write(json::Text& text, std::set<std::string>& set) {
        std::vector<std::string> list{set.begin(), set.end()};
        write(text, list);
    }

    template <typename Value>
    static void write(json::Text& text, std::map<std::string, Value>& table) {
        text.open('{');
        for (auto& [name, value] : table) {
            text.beginMember(name);
            write(text, value);
        }
        text.close('}');
    }

    template <typename Value>
    static void write(json::Text& text, Value& value) {
        if constexpr (std::is_enum_v<Value>) {
            text.addQuoted(std::data(namesOf(value))[static_cast<std::size_t>(value)]);
        } else if constexpr (requires { toJson(text, value); }) {
            toJson(text, value);
        } else {
            text.open('{');
            Writer members{text};
            describe(members, value);
            text.close('}');
        }
    }

  private:
    json::Text& text_;
};
