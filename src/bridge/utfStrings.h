#pragma once

#include <jni.h>

#include <array>
#include <cstddef>
#include <vector>

/// The UTF characters that one native method has taken from Java strings.
/// Gives each buffer back exactly once, in the order taken: on `release`, or else when it goes out of scope.
class UtfStrings {
  public:
    explicit UtfStrings(JNIEnv* env) : env_{env} {}
    ~UtfStrings() { release(); }

    UtfStrings(const UtfStrings&) = delete;
    UtfStrings& operator=(const UtfStrings&) = delete;
    UtfStrings(UtfStrings&&) = delete;
    UtfStrings& operator=(UtfStrings&&) = delete;

    /// The NUL-terminated modified UTF-8 of `string`, valid until the release.
    /// @throws std::invalid_argument  `string` is null
    /// @throws PendingJavaException   the JVM has no memory for the characters
    const char* take(jstring string);

    /// Gives everything taken so far back.
    void release() noexcept { releaseFrom(0); }

    /// Gives back what was taken last.
    void releaseLast() noexcept { releaseFrom(count_ - 1); }

  private:
    struct Taken {
        jstring string;
        const char* chars;
    };

    Taken& at(std::size_t index) {
        return index < first_.size() ? first_[index] : further_[index - first_.size()];
    }
    void releaseFrom(std::size_t first) noexcept;

    JNIEnv* env_;
    std::size_t count_ = 0;
    std::array<Taken, 4> first_{};  ///< more than almost all native methods take, and without an allocation
    std::vector<Taken> further_;
};
