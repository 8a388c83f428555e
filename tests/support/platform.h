#pragma once

#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/allocation.h"
#include "wholePlatform.h"  // IWYU pragma: export

// The platform as the tests see it: the operations that the bridge is linked with, each of which a test may
// mock. The others succeed, with data in every list.

using Texts = std::vector<std::string>;

namespace platform {

/// Runs before each operation but the trace log; may throw, as the platform may.
inline std::function<void()> beforeOperation;

/// Whether all that the platform answers is empty, false or null.
inline bool isEmpty = false;

/// Counts one call of an operation and runs `beforeOperation`.
void operationStarts();

/// How many operations were called since `forgetMocks`.
std::size_t operationCount();

/// Checks the expectations and brings all back to where it was; one test ends.
void forgetMocks();

/// Has `forgetMocks` run this.
void whenForgotten(std::function<void()> action);

/// A line of the trace log, which is mocked like an operation.
void traced(unsigned level, const std::string& line);

/// A tree of all kinds of values, which stays the platform's.
talvern::config::Value* sampleTree();

template <typename Type>
Type plausible();

/// Initialises any field of a record.
struct Anything {
    template <typename Field>
    operator Field() const {  // NOLINT(google-explicit-constructor): that is the point
        return plausible<Field>();
    }
};

template <typename Record, typename... Fields>
Record plausibleRecord() {
    if constexpr (requires { Record{Fields{}..., Anything{}}; }) {
        return plausibleRecord<Record, Fields..., Anything>();
    } else {
        return Record{Fields{}...};
    }
}

template <typename Type>
constexpr bool isList = false;
template <typename Element>
inline constexpr bool isList<std::vector<Element>> = true;

/// What the platform answers or hands out where no test says otherwise; made from the type alone.
template <typename Type>
Type plausible() {
    if constexpr (std::is_same_v<Type, bool>) {
        return !isEmpty;
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return isEmpty ? "" : "text";
    } else if constexpr (std::is_same_v<Type, std::map<std::string, std::string>>) {
        return {{"mtu", "1500"}, {"name", "eth0"}};
    } else if constexpr (isList<Type>) {
        using Element = typename Type::value_type;
        return isEmpty ? Type{} : Type{plausible<Element>(), plausible<Element>()};
    } else if constexpr (std::is_same_v<Type, talvern::config::Value*>) {
        return isEmpty ? nullptr : sampleTree();
    } else if constexpr (std::is_pointer_v<Type>) {
        using Target = std::remove_pointer_t<Type>;
        if constexpr (isList<Target>) {
            return isEmpty ? nullptr : new Target{plausible<Target>()};  // the bridge's to delete
        } else {
            static auto kept = plausible<Target>();
            return isEmpty ? nullptr : &kept;
        }
    } else if constexpr (std::is_trivial_v<Type>) {
        return Type{};  // a status of 0, too
    } else if constexpr (!std::is_void_v<Type>) {
        return plausibleRecord<Type>();
    }
}

/// Puts a plausible answer where an operation hands something out.
template <typename Argument>
void fill(Argument&& argument) {
    using Type = std::remove_reference_t<Argument>;
    if constexpr (std::is_pointer_v<Type>) {
        using Target = std::remove_pointer_t<Type>;
        if constexpr (std::is_same_v<Target, Texts> || std::is_pointer_v<Target>) {
            if (argument != nullptr) *argument = plausible<Target>();
        }
    } else if constexpr (std::is_lvalue_reference_v<Argument> && !std::is_const_v<Type>) {
        argument = plausible<Type>();
    }
}

template <typename Operation>
struct SignatureOf;

template <typename Result, typename... Parameters>
struct SignatureOf<Result (*)(Parameters...)> {
    using Type = Result(Parameters...);
};

template <typename Class, typename Result>
struct SignatureOf<Result (Class::*)() const> {
    using Type = Result(const Class&);
};

template <auto Operation>
using Signature = typename SignatureOf<decltype(Operation)>::Type;

/// What the operation does in the current test; where that is empty, it succeeds.
template <auto Operation>
inline std::function<Signature<Operation>> answerOf;

template <auto Operation>
inline std::unique_ptr<testing::NiceMock<testing::MockFunction<Signature<Operation>>>> mockedOperation;

inline auto& onTrace = answerOf<&traced>;

/// Has the operation do this until the test ends.
template <auto Operation>
void answer(std::function<Signature<Operation>> action) {
    answerOf<Operation> = std::move(action);
    whenForgotten([] { answerOf<Operation> = nullptr; });
}

template <auto Operation, typename... Arguments>
auto succeed(Arguments&&... arguments) {
    (fill(std::forward<Arguments>(arguments)), ...);
    return plausible<typename std::function<Signature<Operation>>::result_type>();
}

/// Every operation of the platform is this.
template <auto Operation, typename... Arguments>
auto operation(Arguments&&... arguments) {
    const UncountedAllocations uncounted;
    operationStarts();
    if (answerOf<Operation>) return answerOf<Operation>(std::forward<Arguments>(arguments)...);
    return succeed<Operation>(std::forward<Arguments>(arguments)...);
}

}  // namespace platform

/// The current test's mock of an operation: EXPECT_CALL(mockOf<&talvern::nodeName::set>(), Call("rack-7")).
template <auto Operation>
auto& mockOf() {
    auto& mock = platform::mockedOperation<Operation>;
    if (!mock) {
        mock = std::make_unique<typename std::remove_reference_t<decltype(mock)>::element_type>();
        ON_CALL(*mock, Call).WillByDefault([](auto&&... arguments) {
            return platform::succeed<Operation>(std::forward<decltype(arguments)>(arguments)...);
        });
        platform::answer<Operation>(mock->AsStdFunction());
        platform::whenForgotten([] { platform::mockedOperation<Operation>.reset(); });
    }
    return *mock;
}

/// The current test's mock of the trace log.
inline auto& mockOfTrace() { return mockOf<&platform::traced>(); }

/// Puts `value` into the operation's parameter number `Index`, and answers `answer`.
template <std::size_t Index = 0, typename Value, typename Answer = bool>
auto deliver(Value value, Answer answer = true) {
    return testing::DoAll(testing::SetArgReferee<Index>(value), testing::Return(answer));
}
