#pragma once

#include <jni.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace talvern::bridge {

/// A string literal as a template argument.
template <std::size_t Size>
struct Literal {
    // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions): written as a plain literal
    constexpr Literal(const char (&literal)[Size]) {
        for (std::size_t i = 0; i < Size; ++i) text[i] = literal[i];
    }

    [[nodiscard]] constexpr std::string_view view() const { return {text, Size - 1}; }

    char text[Size]{};
};

/// `left` and `right`, one after the other.
template <std::size_t Left, std::size_t Right>
constexpr Literal<Left + Right - 1> operator+(const Literal<Left>& left, const Literal<Right>& right) {
    char text[Left + Right - 1]{};
    for (std::size_t i = 0; i < Left - 1; ++i) text[i] = left.text[i];
    for (std::size_t i = 0; i < Right; ++i) text[Left - 1 + i] = right.text[i];
    return {text};
}

/// The position behind the type that starts at `position` of a JNI signature.
constexpr std::size_t endOfType(std::string_view signature, std::size_t position) {
    while (signature[position] == '[') ++position;
    if (signature[position] == 'L') {
        while (signature[position] != ';') ++position;
    }
    return position + 1;
}

constexpr std::size_t parameterCount(std::string_view signature) {
    std::size_t count = 0;
    for (std::size_t at = 1; signature[at] != ')'; at = endOfType(signature, at)) ++count;
    return count;
}

constexpr std::string_view parameterType(std::string_view signature, std::size_t index) {
    std::size_t at = 1;
    for (; index > 0; --index) at = endOfType(signature, at);
    return signature.substr(at, endOfType(signature, at) - at);
}

constexpr std::string_view resultType(std::string_view signature) {
    std::size_t at = 1;
    while (signature[at] != ')') at = endOfType(signature, at);
    return signature.substr(at + 1);
}

/// Whether a C++ argument has exactly the type that the callee reads for the JNI type `type`.
template <typename Argument>
constexpr bool accepts(std::string_view type) {
    using Plain = std::remove_cvref_t<Argument>;
    switch (type.front()) {
        case 'Z': return std::same_as<Plain, jboolean> || std::same_as<Plain, bool>;
        case 'B': return std::same_as<Plain, jbyte>;
        case 'C': return std::same_as<Plain, jchar>;
        case 'S': return std::same_as<Plain, jshort>;
        case 'I': return std::same_as<Plain, jint>;
        case 'J': return std::same_as<Plain, jlong>;
        case 'F': return std::same_as<Plain, jfloat>;
        case 'D': return std::same_as<Plain, jdouble>;
        default: return std::is_convertible_v<Plain, jobject>;
    }
}

template <Literal Signature, typename... Arguments>
constexpr bool acceptsAll() {
    [[maybe_unused]] std::size_t index = 0;
    return parameterCount(Signature.view()) == sizeof...(Arguments) &&
           (accepts<Arguments>(parameterType(Signature.view(), index++)) && ...);
}

/// A call with these arguments fits the member that the JNI signature describes.
template <Literal Signature, typename... Arguments>
concept Accepts = acceptsAll<Signature, Arguments...>();

// One argument as the JNI call routines take it.

inline jvalue toJvalue(bool value) { return {.z = value ? jboolean{JNI_TRUE} : jboolean{JNI_FALSE}}; }
inline jvalue toJvalue(jboolean value) { return {.z = value}; }
inline jvalue toJvalue(jbyte value) { return {.b = value}; }
inline jvalue toJvalue(jchar value) { return {.c = value}; }
inline jvalue toJvalue(jshort value) { return {.s = value}; }
inline jvalue toJvalue(jint value) { return {.i = value}; }
inline jvalue toJvalue(jlong value) { return {.j = value}; }
inline jvalue toJvalue(jfloat value) { return {.f = value}; }
inline jvalue toJvalue(jdouble value) { return {.d = value}; }
inline jvalue toJvalue(jobject value) { return {.l = value}; }

/// The arguments of one call as the JNI call routines take them. One element is added, since C++ has no
/// arrays without elements.
template <typename... Arguments>
std::array<jvalue, sizeof...(Arguments) + 1> toJvalues(Arguments... arguments) {
    return {toJvalue(arguments)..., jvalue{}};
}

}  // namespace talvern::bridge
