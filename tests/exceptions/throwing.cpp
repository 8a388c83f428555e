// A platform library in which each operation throws the next of several exceptions. The other operations are
// generated.
#include <stdexcept>

#ifdef INTERFACE_IS_VISIBLE
#pragma GCC visibility push(default)
#endif

#include "platform/log.h"
#include "platform/messaging.h"

#define EXPORTED __attribute__((visibility("default")))

namespace {

class OwnError : public std::runtime_error {
  public:
    using runtime_error::runtime_error;
};

[[noreturn]] void throwNext() {
    static int calls = 0;
    switch (calls++ % 5) {
        case 0: throw talvern::config::messaging::ValidationException{"first", "second"};
        case 1: throw talvern::config::messaging::ConfigChangeException{7, "text", {"a", "b"}};
        case 2: throw std::out_of_range{"standard"};
        case 3: throw OwnError{"own"};
        default: throw 42;
    }
}

}  // namespace

#include "operations.inc"

namespace talvern::config {

const char* messaging::ValidationException::what() const noexcept { return "validation"; }
const char* messaging::ConfigChangeException::what() const noexcept { return "change"; }
std::string Value::asXML() const { throwNext(); }
const char* const OPSTATE_STR[] = {nullptr};
const char* const ADMINSTATE_STR[] = {nullptr};
const char* const RETURNCODE_STR[] = {nullptr};

}  // namespace talvern::config

EXPORTED void talvern::log::trace(std::uint32_t, const char*, ...) {}
