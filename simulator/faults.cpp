#include "faults.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "memory.h"
#include "platform/messaging.h"

using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;

namespace {

constexpr auto names = std::to_array<const char*>({
#include "operationNames.inc"
});

enum class Outcome { usual, failure, exception, validation, change, unknown };
constexpr std::array outcomeNames{"usual", "failure", "exception", "validation", "change", "unknown"};
const auto& namesOf(Outcome) { return outcomeNames; }

constexpr std::uint32_t longestDelay = 3'600'000;

/// What becomes of the next calls of an operation.
struct Fault {
    std::string operation;
    Outcome outcome = Outcome::usual;
    std::string text = "simulated fault";
    std::uint32_t delay = 0;                            ///< milliseconds
    std::optional<std::uint32_t> times = std::nullopt;  ///< none: always
};

template <typename Members>
void describe(Members& members, Fault& fault) {
    members("operation", fault.operation);
    members("outcome", fault.outcome);
    members("text", fault.text);
    members("delay", fault.delay);
    members("times", fault.times);
    if constexpr (Members::isReading) {
        members.require(
            std::find(names.begin(), names.end(), fault.operation) != names.end(),
            "operation: there is no " + fault.operation);
        members.require(fault.delay <= longestDelay, "delay: must be at most " + std::to_string(longestDelay));
        members.require(fault.times != 0U, "times: must be at least 1");
    }
}

auto& faultMemory = Memory<std::vector<Fault>>::make("faults", OnReset::stays);

/// The fault that the operation's next call has, which is one call less from then on.
std::optional<Fault> next(std::string_view operation) {
    const auto isMeant = [=](const Fault& fault) { return fault.operation == operation; };
    const auto find = [=](auto& faults) { return std::find_if(faults.begin(), faults.end(), isMeant); };
    std::optional<Fault> fault = faultMemory.read([&](const std::vector<Fault>& faults) {
        const auto found = find(faults);
        return found == faults.end() ? std::nullopt : std::optional{*found};
    });
    if (!fault || !fault->times) return fault;
    return faultMemory.change([&](std::vector<Fault>& faults) -> std::optional<Fault> {
        const auto found = find(faults);
        if (found == faults.end()) return std::nullopt;
        std::optional<Fault> taken = *found;
        if (found->times && --*found->times == 0) faults.erase(found);
        return taken;
    });
}

}  // namespace

std::span<const char* const> operationNames() { return names; }

bool strike(const char* operation) {
    const std::optional<Fault> fault = next(operation);
    if (!fault) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds{fault->delay});
    switch (fault->outcome) {
        case Outcome::exception: throw std::runtime_error{fault->text};
        case Outcome::validation: throw ValidationException{operation, fault->text};
        case Outcome::change: throw ConfigChangeException{1, fault->text, {operation}};
        case Outcome::unknown: throw 42;
        case Outcome::failure: return true;
        case Outcome::usual: break;
    }
    return false;
}
