#include "config/valueConversion.h"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bridge/javaMembers.h"
#include "bridge/marshalling.h"
#include "bridge/utfStrings.h"

namespace talvern::bridge {

using config::ArrayValue;
using config::SimpleValue;
using config::StructValue;
using config::Value;

namespace {

constexpr std::size_t maxLevels = 1000;
constexpr std::size_t maxValues = 4'000'000;

/// Converts a tree depth first, with a stack of its own: recursion could overflow that of the Java thread,
/// which would end the JVM. `Steps` gives the types of a value before and after, of a structure or list that
/// is being filled, and what to do with them:
/// - begin: converts a value without children, or opens one that may have some
/// - next: its next child, or nothing
/// - store: puts a converted child into it
/// - finish: closes it and gives what it became
template <typename Steps>
typename Steps::Result convertTree(Steps& steps, typename Steps::Source root) {
    std::vector<typename Steps::Container> open;
    std::optional<typename Steps::Source> source = root;
    std::size_t values = 0;
    while (true) {
        typename Steps::Result result{};
        if (!source) {
            result = steps.finish(open.back());
            open.pop_back();
        } else if (++values > maxValues) {
            throw std::length_error{"configuration value with more than 4000000 values"};
        } else if (*source != nullptr) {
            const std::size_t level = open.size();
            if (level == maxLevels) throw std::length_error{"configuration value deeper than 1000 levels"};
            result = steps.begin(*source, open);
            if (open.size() > level) {
                source = steps.next(open.back());
                continue;
            }
        }
        if (open.empty()) return result;
        steps.store(open.back(), std::move(result));
        source = steps.next(open.back());
    }
}

/// A Java class and its members, looked up when they are first needed.
template <Literal Name, typename... Members>
class LazyClass {
  public:
    const JavaClass<Members...>& get(JNIEnv* env) { return class_ == nullptr ? get(env, find(env)) : *class_; }
    const JavaClass<Members...>& get(JNIEnv* env, jclass javaClass) {
        if (class_ == nullptr) class_ = std::make_unique<const JavaClass<Members...>>(env, javaClass);
        return *class_;
    }
    static jclass find(JNIEnv* env) { return findClass(env, Name.text); }

  private:
    std::unique_ptr<const JavaClass<Members...>> class_;
};

/// The steps from native to Java.
class ToJava {
  public:
    using Source = const Value*;
    using Result = jobject;

    struct Container {
        jobject value;
        const StructValue* structure;  ///< null for a list
        std::map<std::string, Value*>::const_iterator nextMember;
        jstring key;              ///< of the member that is being converted
        const ArrayValue* array;  ///< null for a structure
        std::size_t nextElement;
    };

    explicit ToJava(JNIEnv* env) : env_{env} {}

    jobject begin(const Value* source, std::vector<Container>& open) {
        if (const auto* simple = dynamic_cast<const SimpleValue*>(source)) {
            const auto& java = simple_.get(env_);
            return java.call<NewText>(toJavaString(env_, simple->value), simple->mu);
        }
        if (const auto* structure = dynamic_cast<const StructValue*>(source)) {
            jobject value = structs_.get(env_).call<New>(structure->mu);
            open.push_back({value, structure, structure->members.begin(), nullptr, nullptr, 0});
        } else if (const auto* array = dynamic_cast<const ArrayValue*>(source)) {
            jobject value = arrays_.get(env_).call<New>(array->mu);
            open.push_back({value, nullptr, {}, nullptr, array, 0});
        }
        return nullptr;
    }

    std::optional<const Value*> next(Container& parent) {
        if (parent.structure == nullptr) {
            if (parent.nextElement == parent.array->elements.size()) return {};
            return parent.array->elements[parent.nextElement++];
        }
        if (parent.nextMember == parent.structure->members.end()) return {};
        const auto& [key, child] = *parent.nextMember++;
        parent.key = toJavaString(env_, key);
        return child;
    }

    void store(const Container& parent, jobject child) {
        if (parent.structure == nullptr) {
            arrays_.get(env_).call<Add>(parent.value, child);
        } else {
            structs_.get(env_).call<Put>(parent.value, parent.key, child);
        }
    }

    static jobject finish(const Container& container) { return container.value; }

  private:
    using NewText = Constructor<"(Ljava/lang/String;Z)V">;
    using New = Constructor<"(Z)V">;
    using Put = Method<"put", "(Ljava/lang/String;Lcom/kvo/talvern/config/Value;)Lcom/kvo/talvern/config/Value;">;
    using Add = Method<"add", "(Lcom/kvo/talvern/config/Value;)Z">;

    JNIEnv* env_;
    LazyClass<"com/kvo/talvern/config/SimpleValue", NewText> simple_;
    LazyClass<"com/kvo/talvern/config/StructValue", New, Put> structs_;
    LazyClass<"com/kvo/talvern/config/ArrayValue", New, Add> arrays_;
};

/// The steps from Java to native. Members of sets, iterators and map entries are looked up on the interfaces: what is
/// looked up on the class of one iterator is not valid on another's. Each object is compared with the interface first:
/// the JVM does not see to it that a method of an interface's type returns one.
class ToNative {
  public:
    using Source = jobject;
    using Result = std::unique_ptr<Value>;

    struct Container {
        std::unique_ptr<Value> value;
        bool isStruct;
        jobject iterator;
        const char* key;  ///< of the member that is being converted
    };

    explicit ToNative(JNIEnv* env)
        : env_{env},
          simpleClass_{decltype(simple_)::find(env)},
          arrayClass_{decltype(array_)::find(env)},
          structClass_{decltype(struct_)::find(env)},
          utf_{env} {}

    std::unique_ptr<Value> begin(jobject source, std::vector<Container>& open) {
        if (env_->IsInstanceOf(source, simpleClass_) == JNI_TRUE) return toSimpleValue(source);
        if (env_->IsInstanceOf(source, arrayClass_) == JNI_TRUE) {
            const auto& java = array_.get(env_, arrayClass_);
            const bool mu = java.call<GetMU>(source) == JNI_TRUE;
            jobject iterator = iteratorOf(java, source);
            open.push_back({std::make_unique<ArrayValue>(mu), false, iterator, nullptr});
        } else if (env_->IsInstanceOf(source, structClass_) == JNI_TRUE) {
            const auto& java = struct_.get(env_, structClass_);
            const bool mu = java.call<GetMU>(source) == JNI_TRUE;
            jobject entries = required(java.call<EntrySet>(source), "null entry set");
            const auto& set = set_.get(env_);
            require(entries, set, "entry set that is not a set");
            jobject iterator = iteratorOf(set, entries);
            open.push_back({std::make_unique<StructValue>(mu), true, iterator, nullptr});
        } else {
            call<"getMU", "()Z">(env_, source);  // the flag is asked for whatever the kind
        }
        return nullptr;
    }

    std::optional<jobject> next(Container& parent) {
        const auto& java = iterator_.get(env_);
        if (java.call<HasNext>(parent.iterator) != JNI_TRUE) return {};
        jobject element = java.call<Next>(parent.iterator);
        if (element == nullptr && hasThrown()) return {};  // it might never end otherwise
        return parent.isStruct ? valueOf(element, parent.key) : element;
    }

    void store(Container& parent, std::unique_ptr<Value> child) {
        if (parent.isStruct) {
            static_cast<StructValue&>(*parent.value).put(parent.key, std::move(child));
            utf_.releaseLast();
        } else {
            static_cast<ArrayValue&>(*parent.value).add(std::move(child));
        }
    }

    static std::unique_ptr<Value> finish(Container& container) { return std::move(container.value); }

  private:
    using GetMU = Method<"getMU", "()Z">;
    using GetText = Method<"getValue", "()Ljava/lang/String;">;
    using EntrySet = Method<"entrySet", "()Ljava/util/Set;">;
    using Iterator = Method<"iterator", "()Ljava/util/Iterator;">;
    using HasNext = Method<"hasNext", "()Z">;
    using Next = Method<"next", "()Ljava/lang/Object;">;
    using GetKey = Method<"getKey", "()Ljava/lang/Object;">;
    using GetValue = Method<"getValue", "()Ljava/lang/Object;">;

    std::unique_ptr<Value> toSimpleValue(jobject source) {
        const auto& java = simple_.get(env_, simpleClass_);
        const bool mu = java.call<GetMU>(source) == JNI_TRUE;
        jobject text = required(java.call<GetText>(source), "null value text");
        auto value = std::make_unique<SimpleValue>(utf_.take(static_cast<jstring>(text)), mu);
        utf_.releaseLast();
        limit_.count(value->value);
        return value;
    }

    /// The value of a map entry. Its key stays taken until the pair is stored.
    jobject valueOf(jobject entry, const char*& key) {
        if (entry == nullptr) throw std::invalid_argument{"null map entry"};
        const auto& java = entry_.get(env_);
        const auto& string = string_.get(env_);
        require(entry, java, "map entry that is not an entry");
        jobject javaKey = required(java.call<GetKey>(entry), "null value key");
        require(javaKey, string, "value key that is not a string");
        key = utf_.take(static_cast<jstring>(javaKey));
        limit_.count(key);
        return java.call<GetValue>(entry);
    }

    jobject iteratorOf(const auto& java, jobject receiver) {
        jobject iterator = required(java.template call<Iterator>(receiver), "null iterator");
        require(iterator, iterator_.get(env_), "iterator that is not an iterator");
        return iterator;
    }

    /// Makes sure of the class of an object from Java: what is called on another would end the JVM.
    void require(jobject object, const auto& java, const char* otherwise) {
        if (env_->IsInstanceOf(object, java.get()) != JNI_TRUE) throw std::invalid_argument{otherwise};
    }

    /// What a Java method returned. If it returned null, its own exception goes first.
    jobject required(jobject returned, const char* otherwise) {
        if (returned != nullptr) return returned;
        if (hasThrown()) throw PendingJavaException{};
        throw std::invalid_argument{otherwise};
    }

    bool hasThrown() { return env_->ExceptionCheck() == JNI_TRUE; }

    JNIEnv* env_;
    jclass simpleClass_, arrayClass_, structClass_;
    LazyClass<"com/kvo/talvern/config/SimpleValue", GetMU, GetText> simple_;
    LazyClass<"com/kvo/talvern/config/ArrayValue", GetMU, Iterator> array_;
    LazyClass<"com/kvo/talvern/config/StructValue", GetMU, EntrySet> struct_;
    LazyClass<"java/util/Set", Iterator> set_;
    LazyClass<"java/util/Iterator", HasNext, Next> iterator_;
    LazyClass<"java/util/Map$Entry", GetKey, GetValue> entry_;
    LazyClass<"java/lang/String"> string_;
    UtfStrings utf_;  ///< the keys of the members that are being converted, and one text
    TextLimit limit_;
};

}  // namespace

}  // namespace talvern::bridge

using namespace talvern::bridge;

jobject convertValue2JValue(JNIEnv* env, const Value* value) {
    ToJava steps{env};
    return convertTree(steps, value);
}

Value* convertJValue2Value(JNIEnv* env, jobject value) {
    if (value == nullptr) return nullptr;
    ToNative steps{env};
    return convertTree(steps, value).release();
}
