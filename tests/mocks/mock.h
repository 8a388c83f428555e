#pragma once

#include <cstddef>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <utility>

// The platform as the tests see it: a mock object per namespace, behind the functions that the bridge is
// linked with. Each mock's constructor sets plausible answers, with data in every list.

namespace platform {

/// What stands behind all mocks of one test.
class Mocks {
  public:
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

    /// Counts one call of an operation and runs `beforeOperation`.
    void operationStarts();

    /// How many operations were called since `clear`.
    [[nodiscard]] std::size_t operationCount() const;

  private:
    void* find(const void* key, const std::function<std::shared_ptr<void>()>& create);
};

Mocks& mocks();

/// One operation of the platform: what the current test's mock answers.
template <typename Mock, typename Result, typename... Parameters, typename... Arguments>
Result operation(Result (Mock::*method)(Parameters...), Arguments&&... arguments) {
    mocks().operationStarts();
    return (static_cast<Mock&>(mocks().get<Mock>()).*method)(std::forward<Arguments>(arguments)...);
}

}  // namespace platform

/// The current test's mock of type `Mock`.
template <typename Mock>
testing::NiceMock<Mock>& mock() {
    return platform::mocks().get<Mock>();
}
