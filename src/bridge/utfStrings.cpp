#include "bridge/utfStrings.h"

#include <stdexcept>

#include "bridge/pendingJavaException.h"

const char* UtfStrings::take(jstring string) {
    if (string == nullptr) throw std::invalid_argument{"null string argument"};
    // Room first: a throw after the take would lose the buffer.
    if (count_ == first_.size() + further_.size()) further_.emplace_back();
    const char* chars = env_->GetStringUTFChars(string, nullptr);
    if (chars == nullptr) throw PendingJavaException{};
    at(count_++) = {string, chars};
    return chars;
}

void UtfStrings::releaseFrom(std::size_t first) noexcept {
    // In the order taken; a chain of destructors would run backwards.
    for (std::size_t i = first; i < count_; ++i) env_->ReleaseStringUTFChars(at(i).string, at(i).chars);
    count_ = first;
}
