#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

// The values of configuration objects. Bridge and platform compile against this one header: the fields, their
// order and the order of the virtual functions are part of the binary interface.
//
// A tree is used by one thread at a time. Trees of any depth are copied and destroyed without recursion,
// since they do so on the Java caller's thread, whose stack may be small.

namespace talvern::config {

/// A text, a structure or a list. Owned through its root: deleting that deletes the whole tree.
class Value {
  public:
    virtual ~Value() = default;

    /// A deep copy, which belongs to the caller. A null child is copied as null.
    [[nodiscard]] virtual Value* clone() const = 0;

    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    Value(Value&&) = delete;
    Value& operator=(Value&&) = delete;

    /// The value as XML text, in the platform's format. Provided by the platform library.
    [[nodiscard]] std::string asXML() const;

    bool mu;  ///< the service's flag, which the bridge only carries

  protected:
    explicit Value(bool flag) : mu{flag} {}
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
    ~StructValue() override;

    StructValue(const StructValue&) = delete;
    StructValue& operator=(const StructValue&) = delete;
    StructValue(StructValue&&) = delete;
    StructValue& operator=(StructValue&&) = delete;

    [[nodiscard]] Value* clone() const override;

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
    ~ArrayValue() override;

    ArrayValue(const ArrayValue&) = delete;
    ArrayValue& operator=(const ArrayValue&) = delete;
    ArrayValue(ArrayValue&&) = delete;
    ArrayValue& operator=(ArrayValue&&) = delete;

    [[nodiscard]] Value* clone() const override;

    /// Appends `child`.
    void add(std::unique_ptr<Value> child) {
        elements.push_back(child.get());
        static_cast<void>(child.release());
    }

    std::vector<Value*> elements;
};

static_assert(sizeof(void*) != 8 || (sizeof(SimpleValue) == 16 + sizeof(std::string) &&
                                     sizeof(StructValue) == 16 + sizeof(std::map<std::string, Value*>) &&
                                     sizeof(ArrayValue) == 16 + sizeof(std::vector<Value*>)));

namespace tree {

/// `value` as a `Kind`; null if it is of another kind, a class derived from `Kind` included.
template <typename Kind, typename AnyValue>
auto* exactly(AnyValue* value) {
    using Result = std::conditional_t<std::is_const_v<AnyValue>, const Kind, Kind>;
    return value != nullptr && typeid(*value) == typeid(Kind) ? static_cast<Result*>(value) : nullptr;
}

/// A structure or list whose children are being destroyed, first to last.
class Dismantled {
  public:
    /// Nothing, if `value` is neither a structure nor a list.
    explicit Dismantled(Value* value)
        : struct_{exactly<StructValue>(value)}, array_{exactly<ArrayValue>(value)} {}

    /// Readies the list, so that its first element is the one to drop cheaply.
    void start() {
        if (array_ != nullptr) std::reverse(array_->elements.begin(), array_->elements.end());
    }

    [[nodiscard]] Value* value() const {
        return struct_ != nullptr ? static_cast<Value*>(struct_) : static_cast<Value*>(array_);
    }
    [[nodiscard]] bool isEmpty() const {
        return struct_ != nullptr ? struct_->members.empty() : array_->elements.empty();
    }
    [[nodiscard]] Value*& first() const {
        return struct_ != nullptr ? struct_->members.begin()->second : array_->elements.back();
    }
    void removeFirst() {
        if (struct_ != nullptr) {
            struct_->members.erase(struct_->members.begin());
        } else {
            array_->elements.pop_back();
        }
    }

  private:
    StructValue* struct_;
    ArrayValue* array_;
};

/// Destroys the children of `root`, a structure or list, and all below them. Needs no memory: the way back
/// up is kept in the slots of the children that are being destroyed.
inline void destroyChildren(Value* root) noexcept {
    Value* parent = nullptr;
    Dismantled current{root};
    current.start();
    while (true) {
        if (!current.isEmpty()) {
            Dismantled child{current.first()};
            if (child.value() != nullptr) {
                current.first() = std::exchange(parent, current.value());
                current = child;
                current.start();
            } else {
                delete current.first();
                current.removeFirst();
            }
        } else if (parent != nullptr) {
            Value* finished = current.value();
            current = Dismantled{parent};
            parent = current.first();
            delete finished;
            current.removeFirst();
        } else {
            return;
        }
    }
}

/// Structures and lists, each with a copy that still lacks its children.
using Uncopied = std::vector<std::pair<const Value*, Value*>>;

template <typename Kind>
std::unique_ptr<Value> copyWithoutChildren(const Kind& source, Uncopied& uncopied) {
    auto copy = std::make_unique<Kind>(source.mu);
    uncopied.emplace_back(&source, copy.get());
    return copy;
}

inline std::unique_ptr<Value> copyOfChild(const Value* source, Uncopied& uncopied) {
    if (source == nullptr) return nullptr;
    if (const auto* structure = exactly<StructValue>(source))
        return copyWithoutChildren(*structure, uncopied);
    if (const auto* array = exactly<ArrayValue>(source)) return copyWithoutChildren(*array, uncopied);
    return std::unique_ptr<Value>{source->clone()};
}

/// A deep copy of a structure or list.
template <typename Kind>
Value* copyTree(const Kind& root) {
    Uncopied uncopied;
    std::unique_ptr<Value> copyOfRoot = copyWithoutChildren(root, uncopied);
    while (!uncopied.empty()) {
        const auto [source, copy] = uncopied.back();
        uncopied.pop_back();
        if (auto* structure = exactly<StructValue>(copy)) {
            for (const auto& [key, child] : static_cast<const StructValue*>(source)->members) {
                structure->put(key, copyOfChild(child, uncopied));
            }
        } else {
            for (const Value* child : static_cast<const ArrayValue*>(source)->elements) {
                static_cast<ArrayValue*>(copy)->add(copyOfChild(child, uncopied));
            }
        }
    }
    return copyOfRoot.release();
}

}  // namespace tree

inline StructValue::~StructValue() { tree::destroyChildren(this); }
inline ArrayValue::~ArrayValue() { tree::destroyChildren(this); }

inline Value* StructValue::clone() const { return tree::copyTree(*this); }
inline Value* ArrayValue::clone() const { return tree::copyTree(*this); }

}  // namespace talvern::config
