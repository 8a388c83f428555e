#include "bridge/utfStrings.h"

#include <stdexcept>

#include "bridge/pendingJavaException.h"

const char* UtfStrings::take(jstring string) {
    if (string == nullptr) throw std::invalid_argument{"null string argument"};
    taken_.emplace_back(string, nullptr);  // room first: a throw after the take would lose the buffer
    const char* chars = env_->GetStringUTFChars(string, nullptr);
    if (chars == nullptr) {
        taken_.pop_back();
        throw PendingJavaException{};
    }
    taken_.back().second = chars;
    return chars;
}

void UtfStrings::releaseFrom(std::size_t first) noexcept {
    // In the order taken; a chain of destructors would run backwards.
    for (std::size_t i = first; i < taken_.size(); ++i) {
        env_->ReleaseStringUTFChars(taken_[i].first, taken_[i].second);
    }
    taken_.resize(first);
}
