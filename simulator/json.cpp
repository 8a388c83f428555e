#include "json.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <rapidjson/reader.h>
#include <utility>

namespace json {

namespace {

// The trees of configuration objects have 1,000 levels at most, each of which may take two here.
constexpr std::size_t depthLimit = 2'100;
constexpr std::size_t lineLimit = 130;
constexpr std::size_t quoteLimit = 300;

constexpr char32_t noUnit = 0xFFFFFFFF;

/// Whether it is the same in UTF-8 and modified UTF-8.
bool isPlain(char c) { return c != '\0' && static_cast<unsigned char>(c) < 0x80; }

char continuation(char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); }

void addThreeBytes(std::string& text, char32_t unit) {
    text += {static_cast<char>(0xE0 | (unit >> 12)), continuation(unit >> 6), continuation(unit)};
}

/// Decodes the UTF-16 unit that stands in two or three bytes at `position`, and goes on behind it. `noUnit`
/// if there is none.
char32_t takeUnit(std::string_view text, std::size_t& position) {
    if (position == text.size()) return noUnit;
    const auto first = static_cast<unsigned char>(text[position++]);
    const int following = (first & 0xE0) == 0xC0 ? 1 : (first & 0xF0) == 0xE0 ? 2 : 0;
    char32_t unit = following == 0 ? noUnit : first & (following == 1 ? 0x1F : 0x0F);
    for (int i = 0; i < following; ++i) {
        if (position == text.size() || (text[position] & 0xC0) != 0x80) return noUnit;
        unit = unit << 6 | (static_cast<unsigned char>(text[position++]) & 0x3F);
    }
    return unit;
}

/// Decodes the character that is not ASCII at `position`, and goes on behind it.
char32_t takeCharacter(std::string_view text, std::size_t& position) {
    const auto isBetween = [](char32_t unit, char32_t first, char32_t last) { return unit >= first && unit <= last; };
    char32_t character = takeUnit(text, position);
    if (isBetween(character, 0xD800, 0xDBFF)) {
        const char32_t low = takeUnit(text, position);
        character = isBetween(low, 0xDC00, 0xDFFF) ? 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00) : noUnit;
    } else if (isBetween(character, 0xDC00, 0xDFFF)) {
        character = noUnit;
    }
    if (character == noUnit) throw std::invalid_argument{"a text is not Unicode, and can't be kept"};
    return character;
}

void addCharacter(std::string& text, char32_t character) {
    if (character == '"' || character == '\\') {
        text += {'\\', static_cast<char>(character)};
    } else if (character < 0x20 || character == 0x7F) {
        constexpr auto digits = "0123456789abcdef";
        text += std::string{"\\u00"} + digits[character >> 4] + digits[character & 0xF];
    } else if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += {static_cast<char>(0xC0 | (character >> 6)), continuation(character)};
    } else if (character < 0x10000) {
        addThreeBytes(text, character);
    } else {
        text +=
            {static_cast<char>(0xF0 | (character >> 18)), continuation(character >> 12), continuation(character >> 6),
             continuation(character)};
    }
}

/// Says why a text is no JSON. The other parser knows, and can take its time.
[[noreturn]] void refuse(std::string_view text, std::size_t position) {
    const auto problem = [](std::string_view cause, std::size_t where) {
        // [json.exception.parse_error.101] parse error at line 3, column 5: syntax error ...
        cause.remove_prefix(cause.find("] ") + 2);
        if (cause.starts_with("parse error")) cause.remove_prefix(cause.find(": ") + 2);
        // It quotes the file's bytes, whatever they are and however many.
        const char* const rest = cause.size() > quoteLimit ? "..." : "";
        return Problem{where, toModifiedUtf8(std::string{cause.substr(0, quoteLimit)}) + rest};
    };
    try {
        const auto keepNothing = [](int, nlohmann::json::parse_event_t, nlohmann::json&) { return false; };
        [[maybe_unused]] const auto nothing = nlohmann::json::parse(text, keepNothing);
    } catch (const nlohmann::json::parse_error& error) {
        throw problem(error.what(), std::max<std::size_t>(1, std::min(error.byte, text.size())) - 1);
    } catch (const nlohmann::json::exception& error) {
        throw problem(error.what(), position);
    }
    throw Problem{position, "is no JSON"};
}

}  // namespace

/// Makes a document of what the parser meets.
class Builder {
  public:
    using Ch = char;

    Builder(Document& document, rapidjson::InsituStringStream& source) : document_{document}, source_{source} {}

    bool Null() { return add(Kind::null); }
    bool Bool(bool value) { return add(Kind::boolean, value ? 1 : 0); }
    bool Int(int value) { return add(Kind::integer, value); }
    bool Uint(unsigned value) { return add(Kind::integer, value); }
    bool Int64(std::int64_t value) { return add(Kind::integer, value); }
    bool Uint64(std::uint64_t value) {
        return value > INT64_MAX ? add(Kind::otherNumber) : add(Kind::integer, static_cast<std::int64_t>(value));
    }
    bool Double(double) { return add(Kind::otherNumber); }
    bool RawNumber(const char*, unsigned, bool) { return false; }  // is not asked for
    bool String(const char* text, unsigned length, bool) {
        return add(Kind::text, 0, modified({text, length})) && isUnicode_;
    }
    bool StartObject() { return open(Kind::object); }
    bool Key(const char* name, unsigned length, bool) {
        key_ = modified({name, length});
        return isUnicode_;
    }
    bool EndObject(unsigned) {
        refuseSecondMembers(*open_.back().node);
        return EndArray(0);
    }
    bool StartArray() { return open(Kind::list); }
    bool EndArray(unsigned) {
        open_.pop_back();
        return true;
    }

  private:
    struct Open {
        Node* node;
        Node* lastChild;
    };

    /// The text as it is inside the appliance.
    std::string_view modified(std::string_view text) {
        if (std::all_of(text.begin(), text.end(), isPlain)) return text;
        // The parser does not mind the second half of a surrogate pair alone.
        for (std::size_t i = text.find('\xED'); i != std::string_view::npos; i = text.find('\xED', i + 1)) {
            isUnicode_ = isUnicode_ && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        }
        return document_.modified_.emplace_back(toModifiedUtf8(std::string{text}));
    }

    bool add(Kind kind, std::int64_t number = 0, std::string_view text = {}) {
        Node& node = document_.nodes_.emplace_back(Node{kind, source_.Tell(), number, text, std::exchange(key_, {})});
        if (open_.empty()) return true;
        auto& [parent, lastChild] = open_.back();
        (lastChild == nullptr ? parent->firstChild : lastChild->next) = &node;
        lastChild = &node;
        ++parent->number;
        return true;
    }

    bool open(Kind kind) {
        if (open_.size() == depthLimit) throw Problem{source_.Tell(), "is nested too deeply"};
        add(kind);
        open_.push_back({&document_.nodes_.back(), nullptr});
        return true;
    }

    void refuseSecondMembers(const Node& object) {
        members_.clear();
        for (const Node* member = object.firstChild; member != nullptr; member = member->next) {
            members_.push_back(member);
        }
        std::sort(
            members_.begin(), members_.end(), [](const Node* one, const Node* other) { return one->key < other->key; });
        const auto second = std::adjacent_find(
            members_.begin(), members_.end(),
            [](const Node* one, const Node* other) { return one->key == other->key; });
        if (second != members_.end()) {
            throw Problem{
                std::max((*second)->position, second[1]->position),
                "there are two members " + std::string{(*second)->key}};
        }
    }

    Document& document_;
    rapidjson::InsituStringStream& source_;
    bool isUnicode_ = true;  // so far
    std::string_view key_;
    std::vector<Open> open_;
    std::vector<const Node*> members_;  // kept for its memory
};

std::string toModifiedUtf8(std::string text) {
    if (std::all_of(text.begin(), text.end(), isPlain)) return text;
    std::string modified;
    for (std::string_view rest = text; !rest.empty();) {
        const auto first = static_cast<unsigned char>(rest.front());
        const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        const std::string_view character = rest.substr(0, length);
        const bool isCharacter =
            character.size() == length && (length == 1 || (first >= 0xC0 && first < 0xF5)) &&
            std::all_of(character.begin() + 1, character.end(), [](char c) { return (c & 0xC0) == 0x80; });
        rest.remove_prefix(isCharacter ? length : 1);
        if (!isCharacter) {
            modified += '?';
        } else if (first == 0) {
            modified += "\xC0\x80";
        } else if (length < 4) {
            modified += character;
        } else {
            char32_t code = first & 0x07;
            for (const char c : character.substr(1)) code = code << 6 | (static_cast<unsigned char>(c) & 0x3F);
            addThreeBytes(modified, 0xD800 + ((code - 0x10000) >> 10));
            addThreeBytes(modified, 0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return modified;
}

Document::Document(std::string_view text) : text_{text} {
    constexpr unsigned flags =
        rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    if (text.starts_with("\xEF\xBB\xBF")) text_.replace(0, 3, 3, ' ');  // some editors begin a file with these
    rapidjson::InsituStringStream source{text_.data()};
    Builder builder{*this, source};
    rapidjson::Reader reader;
    if (!reader.Parse<flags>(source, builder)) refuse(text, reader.GetErrorOffset());
}

void Text::open(char bracket) {
    openings_.push_back(text_.size());
    text_ += bracket;
}

void Text::close(char bracket) {
    const std::size_t opening = openings_.back();
    openings_.pop_back();
    if (text_.size() > opening + 1) breakLine();
    text_ += bracket;
    if (text_.size() - opening > 10 * lineLimit) return;
    std::string line;
    for (std::size_t i = opening; i < text_.size(); ++i) {
        if (text_[i] != '\n') {
            line += text_[i];
            continue;
        }
        if (text_[i - 1] == ',') line += ' ';
        while (text_[i + 1] == ' ') ++i;
    }
    if (line.size() <= lineLimit) text_.replace(opening, std::string::npos, line);
}

void Text::beginElement() {
    if (text_.size() > openings_.back() + 1) text_ += ',';
    breakLine();
}

void Text::beginMember(std::string_view name) {
    beginElement();
    addQuoted(name);
    text_ += ": ";
}

void Text::addQuoted(std::string_view modifiedUtf8) {
    text_ += '"';
    const auto isPlain = [](char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; };
    for (std::size_t i = 0; i < modifiedUtf8.size();) {
        const std::size_t begin = i;
        while (i < modifiedUtf8.size() && isPlain(modifiedUtf8[i])) ++i;
        text_ += modifiedUtf8.substr(begin, i - begin);
        if (i == modifiedUtf8.size()) break;
        const bool isAscii = static_cast<unsigned char>(modifiedUtf8[i]) < 0x80;
        addCharacter(text_, isAscii ? static_cast<char32_t>(modifiedUtf8[i++]) : takeCharacter(modifiedUtf8, i));
    }
    text_ += '"';
}

void Text::breakLine() {
    text_ += '\n';
    text_.append(2 * (depth_ + openings_.size()), ' ');
}

}  // namespace json
