#pragma once

#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/allocation.h"

// The platform as the tests see it: a mock object per namespace, behind the functions that the bridge is
// linked with. All answers are plausible without an expectation, with data in every list.

using Texts = std::vector<std::string>;

namespace platform {

/// How the platform answers beyond what is plausible.
enum class Hostility { none, empty, least, greatest, huge };

/// A million elements, ten million characters.
void makeHostile(std::string& text, Hostility hostility);

/// Answers of types that have nothing hostile about them.
template <typename Answer>
void makeHostile(Answer& answer, Hostility hostility) {
    if constexpr (std::is_same_v<Answer, bool>) {
        if (hostility == Hostility::empty) answer = false;
    } else if constexpr (std::is_arithmetic_v<Answer>) {
        if (hostility == Hostility::least) answer = std::numeric_limits<Answer>::lowest();
        if (hostility == Hostility::greatest) answer = std::numeric_limits<Answer>::max();
    } else if constexpr (std::is_enum_v<Answer>) {
        auto number = static_cast<std::underlying_type_t<Answer>>(answer);
        makeHostile(number, hostility);
        answer = static_cast<Answer>(number);
    } else if constexpr (std::is_pointer_v<Answer>) {
        if (hostility == Hostility::empty) answer = nullptr;
    }
}

/// An answer that the bridge is to delete.
template <typename Answer>
void makeHostile(std::unique_ptr<Answer>& answer, Hostility hostility) {
    if (hostility == Hostility::empty) answer.reset();
}

template <typename Element>
void makeHostile(std::vector<Element>& list, Hostility hostility) {
    if (hostility == Hostility::empty) {
        if constexpr (std::is_pointer_v<Element>) {
            list.push_back(nullptr);
        } else {
            list.clear();
        }
    } else if (hostility == Hostility::huge && !list.empty()) {
        list.resize(1'000'000, list.front());
    }
}

/// What stands behind all mocks of one test.
class Mocks {
  public:
    /// Sets what is answered where neither a test nor a mock says anything.
    Mocks();

    /// The current test's mock of type `Mock`, created when it is first asked for.
    template <typename Mock>
    testing::NiceMock<Mock>& get() {
        static const char key{};
        return *static_cast<testing::NiceMock<Mock>*>(
            find(&key, [] { return std::make_shared<testing::NiceMock<Mock>>(); }));
    }

    /// Checks the expectations and forgets all mocks; one test ends.
    void clear();

    /// Runs before each operation of the platform but the trace log; may throw, as the platform may.
    std::function<void()> beforeOperation;

    /// What becomes of all answers.
    Hostility hostility = Hostility::none;

    /// Counts one call of an operation and runs `beforeOperation`.
    void operationStarts();

    /// How many operations were called since `clear`.
    [[nodiscard]] std::size_t operationCount() const;

  private:
    void* find(const void* key, const std::function<std::shared_ptr<void>()>& create);
};

Mocks& mocks();

}  // namespace platform

/// The current test's mock of type `Mock`.
template <typename Mock>
testing::NiceMock<Mock>& mock() {
    return platform::mocks().get<Mock>();
}

/// One operation of the platform: what the current test's mock answers.
template <typename Mock, typename Result, typename... Parameters, typename... Arguments>
Result operation(Result (Mock::*method)(Parameters...), Arguments&&... arguments) {
    const UncountedAllocations uncounted;
    platform::mocks().operationStarts();
    const auto answer = [&]() -> Result {
        return (static_cast<Mock&>(mock<Mock>()).*method)(std::forward<Arguments>(arguments)...);
    };
    const platform::Hostility hostility = platform::mocks().hostility;
    if (hostility == platform::Hostility::none) return answer();
    const auto spoil = [&](auto& argument) {
        if constexpr (!std::is_const_v<std::remove_reference_t<decltype(argument)>>)
            makeHostile(argument, hostility);
    };
    if constexpr (std::is_void_v<Result>) {
        answer();
        (spoil(arguments), ...);
    } else {
        Result result = answer();
        (spoil(arguments), ...);
        makeHostile(result, hostility);
        return result;
    }
}

/// Puts `value` into the platform's output parameter number `Index`, and answers `answer`.
template <std::size_t Index = 0, typename Value, typename Answer = bool>
auto deliver(Value value, Answer answer = true) {
    return testing::DoAll(testing::SetArgReferee<Index>(value), testing::Return(answer));
}
