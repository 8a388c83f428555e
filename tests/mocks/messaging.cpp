#include "platform/messaging.h"

namespace talvern::config::messaging {

const char* ValidationException::what() const noexcept { return "validation failed"; }
const char* ConfigChangeException::what() const noexcept { return "change failed"; }

}  // namespace talvern::config::messaging
