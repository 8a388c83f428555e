#include <concepts>
#include <type_traits>

#include "applianceFile.h"
#include "faults.h"
#include "simulated.h"

namespace {

/// The answer by which an operation with such a result says that it has failed. A status, a count or a
/// reading below 0 is none.
template <typename Result>
Result failingAnswer() {
    if constexpr (std::is_same_v<Result, talvern::config::Service::ReturnCode>) {
        return Result::FAILED;
    } else if constexpr (std::is_same_v<Result, talvern::packetCapture::InterfaceState>) {
        return talvern::packetCapture::failed;
    } else if constexpr (std::is_same_v<Result, talvern::packetCapture::CaptureInfo>) {
        return {"", talvern::packetCapture::failed, {}};
    } else if constexpr (std::signed_integral<Result>) {
        return -1;
    } else {
        return Result();
    }
}

/// What every operation passes: its faults come first.
template <typename Action>
auto perform(const char* operation, Action action) {
    if (isKept && strike(operation)) [[unlikely]]
        return failingAnswer<decltype(action())>();
    return action();
}

}  // namespace

#include "operations.inc"
