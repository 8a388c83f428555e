#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// The values of configuration objects. Bridge and platform compile against this one header: the fields, their
// order and the order of the virtual functions are part of the binary interface.
//
// A tree is used by one thread at a time. It is copied and destroyed by recursion: 1,000 levels, the most
// that the bridge converts, fit the smallest stack of Java code, 192 KiB, but for the interpreter Zero, which
// takes half of it.

namespace talvern::config {

/// A text, a structure or a list. Owned through its root: deleting that deletes the whole tree.
class Value {
  public:
    virtual ~Value() = default;

    /// A deep copy, which belongs to the caller. A null child is copied as null.
    [[nodiscard]] virtual Value* clone() const = 0;

    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;

    /// The value as XML text, in the platform's format. Provided by the platform library.
    [[nodiscard]] std::string asXML() const;

    bool mu;  ///< the service's flag, which the bridge only carries

  protected:
    explicit Value(bool flag) : mu{flag} {}

    /// A deep copy of a child, which may be null.
    static std::unique_ptr<Value> copyOf(const Value* child) {
        return std::unique_ptr<Value>{child == nullptr ? nullptr : child->clone()};
    }
};

/// A single text, in modified UTF-8.
class SimpleValue : public Value {
  public:
    SimpleValue(std::string text, bool flag) : Value{flag}, value{std::move(text)} {}

    [[nodiscard]] Value* clone() const override { return new SimpleValue{value, mu}; }

    std::string value;
};

/// Values under keys, in ascending order of the keys' bytes. Owns its children, each of which may be null.
class StructValue : public Value {
  public:
    explicit StructValue(bool flag) : Value{flag} {}
    ~StructValue() override {
        for (const auto& [key, child] : members) delete child;
    }

    StructValue(const StructValue&) = delete;
    StructValue& operator=(const StructValue&) = delete;

    [[nodiscard]] Value* clone() const override {
        auto copy = std::make_unique<StructValue>(mu);
        for (const auto& [key, child] : members) copy->put(key, copyOf(child));
        return copy.release();
    }

    /// Stores `child` under the key and destroys what was stored there before.
    void put(std::string key, std::unique_ptr<Value> child) {
        Value*& stored = members.try_emplace(std::move(key)).first->second;
        delete stored;
        stored = child.release();
    }

    std::map<std::string, Value*> members;
};

/// Values in the order in which they were added. Owns its children, each of which may be null.
class ArrayValue : public Value {
  public:
    explicit ArrayValue(bool flag) : Value{flag} {}
    ~ArrayValue() override {
        for (const Value* child : elements) delete child;
    }

    ArrayValue(const ArrayValue&) = delete;
    ArrayValue& operator=(const ArrayValue&) = delete;

    [[nodiscard]] Value* clone() const override {
        auto copy = std::make_unique<ArrayValue>(mu);
        for (const Value* child : elements) copy->add(copyOf(child));
        return copy.release();
    }

    /// Appends `child`.
    void add(std::unique_ptr<Value> child) {
        elements.push_back(child.get());
        static_cast<void>(child.release());
    }

    std::vector<Value*> elements;
};

static_assert(
    sizeof(void*) != 8 || (sizeof(SimpleValue) == 16 + sizeof(std::string) &&
                           sizeof(StructValue) == 16 + sizeof(std::map<std::string, Value*>) &&
                           sizeof(ArrayValue) == 16 + sizeof(std::vector<Value*>)));

}  // namespace talvern::config
