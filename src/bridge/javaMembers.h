#pragma once

#include <jni.h>

#include <tuple>

#include "bridge/pendingJavaException.h"
#include "bridge/signature.h"

namespace talvern::bridge {

// Java classes and their members. A member is named by its JNI signature, from which the compiler derives
// the call routine and the arguments that it accepts. A lookup that fails throws PendingJavaException and
// leaves the JVM's error pending. Nothing here outlives the call of a native method.

/// The class of this name, such as "java/util/HashMap".
inline jclass findClass(JNIEnv* env, const char* name) { return notNull(env->FindClass(name)); }

/// The class of `object`, which must not be null.
inline jclass classOf(JNIEnv* env, jobject object) { return notNull(env->GetObjectClass(notNull(object))); }

/// An instance method, looked up on a class and called on any number of objects.
template <Literal Name, Literal Signature>
class Method {
  public:
    Method(JNIEnv* env, jclass javaClass)
        : env_{env}, id_{notNull(env->GetMethodID(javaClass, Name.text, Signature.text))} {}

    /// Calls the method on `receiver`. What the Java code throws stays pending; the result is 0, false or
    /// null then.
    /// @throws PendingJavaException  `receiver` is null
    template <typename... Arguments>
        requires Accepts<Signature, Arguments...>
    auto operator()(jobject receiver, Arguments... arguments) const {
        const auto values = toJvalues(arguments...);
        constexpr std::string_view type = resultType(Signature.view());
        static_assert(type == "V" || type == "Z" || type == "I" || type.front() == 'L');
        notNull(receiver);
        if constexpr (type == "V") {
            env_->CallVoidMethodA(receiver, id_, values.data());
        } else if constexpr (type == "Z") {
            return env_->CallBooleanMethodA(receiver, id_, values.data());
        } else if constexpr (type == "I") {
            return env_->CallIntMethodA(receiver, id_, values.data());
        } else {
            return env_->CallObjectMethodA(receiver, id_, values.data());
        }
    }

  private:
    JNIEnv* env_;
    jmethodID id_;
};

/// A constructor, looked up on a class.
template <Literal Signature>
class Constructor {
  public:
    Constructor(JNIEnv* env, jclass javaClass)
        : env_{env}, class_{javaClass}, id_{notNull(env->GetMethodID(javaClass, "<init>", Signature.text))} {}

    /// A new object, as a local reference. What the constructor throws stays pending; the result is null
    /// then.
    template <typename... Arguments>
        requires Accepts<Signature, Arguments...>
    auto operator()(Arguments... arguments) const -> jobject {
        const auto values = toJvalues(arguments...);
        return env_->NewObjectA(class_, id_, values.data());
    }

  private:
    JNIEnv* env_;
    jclass class_;
    jmethodID id_;
};

/// A static method that returns an object.
template <Literal Name, Literal Signature>
class StaticMethod {
  public:
    StaticMethod(JNIEnv* env, jclass javaClass)
        : env_{env}, class_{javaClass}, id_{notNull(env->GetStaticMethodID(javaClass, Name.text, Signature.text))} {}

    /// Calls the method. What the Java code throws stays pending; the result is null then.
    template <typename... Arguments>
        requires Accepts<Signature, Arguments...>
    auto operator()(Arguments... arguments) const -> jobject {
        static_assert(resultType(Signature.view()).size() > 1);
        const auto values = toJvalues(arguments...);
        return env_->CallStaticObjectMethodA(class_, id_, values.data());
    }

  private:
    JNIEnv* env_;
    jclass class_;
    jmethodID id_;
};

/// A Java class and some of its members, looked up once, in their order.
template <typename... Members>
class JavaClass {
  public:
    JavaClass([[maybe_unused]] JNIEnv* env, jclass javaClass)
        : class_{javaClass}, members_{Members{env, javaClass}...} {}

    [[nodiscard]] jclass get() const { return class_; }

    /// Calls one of the members.
    template <typename Member, typename... Arguments>
    // NOLINTNEXTLINE(modernize-use-nodiscard): what a method returns does not matter to all
    auto call(Arguments... arguments) const {
        return std::get<Member>(members_)(arguments...);
    }

  private:
    jclass class_;
    std::tuple<Members...> members_;
};

/// Looks the method up on the receiver's own class and calls it once.
template <Literal Name, Literal Signature, typename... Arguments>
    requires Accepts<Signature, Arguments...>
auto call(JNIEnv* env, jobject receiver, Arguments... arguments) {
    return Method<Name, Signature>{env, classOf(env, receiver)}(receiver, arguments...);
}

}  // namespace talvern::bridge
