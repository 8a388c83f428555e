#pragma once

#include <cstdint>
#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The appliance's file as text. Inside the appliance texts are modified UTF-8, in the file UTF-8.
namespace json {

/// UTF-8 as the bridge hands it to Java. What is none becomes question marks.
std::string toModifiedUtf8(std::string text);

/// Why the file is refused.
class Problem : public std::runtime_error {
  public:
    /// It is in the text before this position.
    Problem(std::size_t position, std::string cause)
        : std::runtime_error{cause}, position_{position}, text_{std::move(cause)} {}

    /// Says in which member or element it is: "name" or "[3]".
    void within(const std::string& step) {
        text_ = step + (isInside_ ? (text_.front() == '[' ? "" : ".") : ": ") + text_;
        isInside_ = true;
    }

    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }
    [[nodiscard]] std::size_t position() const { return position_; }

  private:
    std::size_t position_;
    std::string text_;
    bool isInside_ = false;
};

enum class Kind { null, boolean, integer, otherNumber, text, list, object };

/// A value in a document.
struct Node {
    Kind kind;
    std::size_t position;  ///< where it begins or, unless it is a list or an object, ends
    std::int64_t number;   ///< of an integer or boolean; of a list or object: how many children it has
    std::string_view text;
    std::string_view key;  ///< of a member of an object
    Node* firstChild = nullptr;
    Node* next = nullptr;  ///< in the same list or object
};

/// What a text says. No object names a member twice.
class Document {
  public:
    /// @throws Problem  the text is no JSON
    explicit Document(std::string_view text);
    Document(const Document&) = delete;  // the values are views of it
    Document& operator=(const Document&) = delete;
    ~Document() = default;

    /// Belongs to the document, as all values in it.
    [[nodiscard]] const Node& root() const { return nodes_.front(); }

  private:
    friend class Builder;
    std::string text_;  // in which the parser decodes what is quoted
    std::deque<std::string> modified_;
    std::deque<Node> nodes_;
};

/// A text that grows. What fits on a line stands on one.
class Text {
  public:
    /// The text of a value that stands `depth` lists and objects deep in the whole one.
    explicit Text(std::size_t depth) : depth_{depth} {}

    void open(char bracket);
    void close(char bracket);
    void beginElement();
    void beginMember(std::string_view name);

    /// Adds a text in quotes.
    /// @throws std::invalid_argument  it is not Unicode, and could not be read again
    void addQuoted(std::string_view modifiedUtf8);
    void add(std::string_view verbatim) { text_ += verbatim; }

    [[nodiscard]] std::string take() { return std::move(text_); }

  private:
    void breakLine();

    std::size_t depth_;
    std::string text_ = {};
    std::vector<std::size_t> openings_ = {};  // where the open lists and objects begin
};

}  // namespace json
