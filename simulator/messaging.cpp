#include "platform/messaging.h"

namespace talvern::config::messaging {

const char* ValidationException::what() const noexcept { return second.c_str(); }

const char* ConfigChangeException::what() const noexcept { return text.c_str(); }

}  // namespace talvern::config::messaging
