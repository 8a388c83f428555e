#pragma once

#include <jni.h>  // IWYU pragma: export

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "bridge/entryPoint.h"   // IWYU pragma: export
#include "bridge/marshalling.h"  // IWYU pragma: export
#include "bridge/utfStrings.h"   // IWYU pragma: export

// Native methods that pass their arguments on to one operation of the platform, and its answer back. How each is
// converted follows from what the operation declares and what Java has. The compiler refuses what does not fit.
// Brings the JNI, the frames, the conversions and the characters of strings along: all that a file of native methods
// needs of the bridge.

namespace talvern::bridge {

template <typename Type, typename... Types>
concept OneOf = (std::same_as<Type, Types> || ...);

/// Whether an operation's parameter can be made of an argument from Java, or is given by the bridge itself.
/// Not a reference through which the operation answers.
template <typename Parameter, typename Argument>
constexpr bool isPassable = std::same_as<Parameter, Argument> ||
                            (std::same_as<Argument, std::nullptr_t> && std::is_pointer_v<Parameter>) ||
                            (std::same_as<Argument, jboolean> && std::same_as<Parameter, bool>) ||
                            (std::same_as<Argument, jint> &&
                             (std::same_as<Parameter, std::uint32_t> || std::is_enum_v<Parameter>)) ||
                            (std::same_as<Argument, jstring> && OneOf<Parameter, const char*, std::string>) ||
                            (std::same_as<Argument, jobjectArray> && std::same_as<Parameter, std::vector<std::string>>);
template <typename Parameter, typename Argument>
inline constexpr bool isPassable<const Parameter&, Argument> = isPassable<Parameter, Argument>;

/// In place of UtfStrings where there are no strings: it would cost more than all else.
struct NoStrings {
    explicit NoStrings(JNIEnv*) {}
};

/// What the operation receives for an argument. The characters of a string are taken by `utf`.
template <typename Parameter, typename Strings, typename Argument>
auto toPassed(JNIEnv* env, [[maybe_unused]] Strings& utf, Argument argument) {
    if constexpr (std::same_as<Argument, jstring>) {
        return utf.take(argument);
    } else if constexpr (std::same_as<Argument, jobjectArray>) {
        return toNativeStringList(env, argument);
    } else if constexpr (std::same_as<Argument, jboolean>) {
        return argument != JNI_FALSE;
    } else if constexpr (std::same_as<Argument, jint>) {
        return static_cast<std::remove_cvref_t<Parameter>>(argument);
    } else {
        return argument;
    }
}

/// In place of a failure value: Java receives null for an empty text and after an exception.
struct NullIfEmpty {};

/// Whether an operation's answer has a meaning where the failure value is a `Failure`.
template <typename Failure, typename Answer>
constexpr bool isReturnable = (std::same_as<Failure, jint> && OneOf<Answer, jint, std::uint32_t>) ||
                              (std::same_as<Failure, jlong> && std::same_as<Answer, jlong>) ||
                              (std::same_as<Failure, jboolean> && OneOf<Answer, bool, std::int32_t>) ||
                              (OneOf<Failure, jstring, NullIfEmpty> && std::same_as<Answer, std::string>) ||
                              (std::same_as<Failure, jobjectArray> && std::same_as<Answer, std::vector<std::string>>);

/// The Java form of an answer: numbers, truths, texts and lists as they are. A status is true exactly when it
/// is 0, where Java has a `boolean`.
template <typename Failure, typename Answer>
auto toReturned(JNIEnv* env, const Answer& answer) {
    if constexpr (std::same_as<Failure, NullIfEmpty>) {
        return answer.empty() ? nullptr : toJavaString(env, answer);
    } else if constexpr (std::same_as<Failure, jstring>) {
        return toJavaString(env, answer);
    } else if constexpr (std::same_as<Failure, jobjectArray>) {
        return toJavaStringArray(env, answer);
    } else if constexpr (std::same_as<Failure, jboolean> && std::same_as<Answer, std::int32_t>) {
        return isSuccess(answer);
    } else if constexpr (std::same_as<Failure, jboolean>) {
        return toJavaBoolean(answer);
    } else {
        return static_cast<Failure>(answer);
    }
}

/// Converts the arguments, one after the other, and calls the operation. Characters are held during the call
/// and given back in the order in which they were taken, whatever comes of it.
template <typename Answer, typename... Parameters, typename... Arguments>
[[gnu::always_inline]] inline Answer
callPlatform(JNIEnv* env, Answer (*operation)(Parameters...), Arguments... arguments) {
    std::conditional_t<(std::same_as<Arguments, jstring> || ...), UtfStrings, NoStrings> utf{env};
    std::tuple passed{toPassed<Parameters>(env, utf, arguments)...};  // braces keep the order
    return std::apply([&](auto&... values) { return operation(values...); }, passed);
}

template <typename Operation, typename... Arguments>
constexpr bool takes = false;

template <typename Answer, typename... Parameters, typename... Arguments>
    requires(sizeof...(Parameters) == sizeof...(Arguments))
inline constexpr bool takes<Answer (*)(Parameters...), Arguments...> = (isPassable<Parameters, Arguments> && ...);

/// A native method whose failure value is a `Failure` can pass its arguments on to the operation.
template <typename Failure, typename Operation, typename Answer, typename... Arguments>
concept CanPassOn = isReturnable<Failure, Answer> && takes<Operation, Arguments...>;

/// A native method: passes `arguments` on to `operation`, and gives what it answers to Java.
template <typename Failure, typename Answer, typename... Parameters, typename... Arguments>
    requires CanPassOn<Failure, Answer (*)(Parameters...), Answer, Arguments...>
[[gnu::always_inline]] inline auto
passOn(JNIEnv* env, Failure failureValue, Answer (*operation)(Parameters...), Arguments... arguments) {
    const auto body = [&] { return toReturned<Failure>(env, callPlatform(env, operation, arguments...)); };
    if constexpr (std::same_as<Failure, NullIfEmpty>) {
        return entryPoint(env, jstring{}, body);
    } else {
        return entryPoint(env, failureValue, body);
    }
}

/// A native method that returns nothing, whatever the operation answers.
template <typename Answer, typename... Parameters, typename... Arguments>
    requires takes<Answer (*)(Parameters...), Arguments...>
[[gnu::always_inline]] inline void passOn(JNIEnv* env, Answer (*operation)(Parameters...), Arguments... arguments) {
    entryPoint(env, [&] { callPlatform(env, operation, arguments...); });
}

}  // namespace talvern::bridge
