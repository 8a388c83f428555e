#pragma once

#include <jni.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "bridge/pendingJavaException.h"

namespace talvern::bridge {

/// The UTF characters that one native method has taken from Java strings.
/// Gives each buffer back exactly once: the last one on `releaseLast`, all others in the order taken, on
/// `release` or else when it goes out of scope.
class UtfStrings {
  public:
    explicit UtfStrings(JNIEnv* env) : env_{env} {}
    ~UtfStrings() { release(); }

    UtfStrings(const UtfStrings&) = delete;
    UtfStrings& operator=(const UtfStrings&) = delete;

    /// The NUL-terminated modified UTF-8 of `string`, valid until the release.
    /// @throws std::invalid_argument  `string` is null
    /// @throws PendingJavaException   the JVM has no memory for the characters
    const char* take(jstring string) {
        if (string == nullptr) throw std::invalid_argument{"null string argument"};
        // Room first: a throw after the take would lose the buffer.
        if (count_ == first_.size() + further_.size()) further_.emplace_back();
        const char* chars = notNull(env_->GetStringUTFChars(string, nullptr));
        at(count_++) = {string, chars};
        return chars;
    }

    /// Gives everything taken so far back.
    void release() noexcept {
        // In the order taken; a chain of destructors would run backwards.
        for (std::size_t i = 0; i < count_; ++i) giveBack(at(i));
        count_ = 0;
    }

    /// Gives back what was taken last.
    void releaseLast() noexcept { giveBack(at(--count_)); }

  private:
    struct Taken {
        jstring string;
        const char* chars;
    };

    Taken& at(std::size_t index) { return index < first_.size() ? first_[index] : further_[index - first_.size()]; }
    void giveBack(const Taken& taken) noexcept { env_->ReleaseStringUTFChars(taken.string, taken.chars); }

    JNIEnv* env_;
    std::size_t count_ = 0;
    std::array<Taken, 4> first_{};  ///< more than almost all native methods take, and without an allocation
    std::vector<Taken> further_;
};

/// Counts the characters that one argument from Java is copied to: a few objects, used again and again, stand
/// for more text than any memory has room for.
class TextLimit {
  public:
    /// @throws std::length_error  it is more than 256 MiB in all
    void count(std::string_view text) {
        bytes_ += text.size();
        if (bytes_ > std::size_t{256} << 20) throw std::length_error{"argument with more than 256 MiB of text"};
    }

  private:
    std::size_t bytes_ = 0;
};

}  // namespace talvern::bridge
