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

void UtfStrings::release() noexcept {
    // In the order taken; a chain of destructors would run backwards.
    for (const auto& [string, chars] : taken_) env_->ReleaseStringUTFChars(string, chars);
    taken_.clear();
}
