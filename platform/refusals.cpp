// For a platform library that does not provide all operations yet: compiled into it, this file refuses the
// others by an exception that names them. Each definition is weak: the library's own takes its place.
#include <stdexcept>
#include <string>

#include "platform/log.h"
#include "platform/messaging.h"
#include "platform/value.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"

namespace {

[[noreturn]] void notProvided(const std::string& operation) {
    throw std::runtime_error{operation + " is not provided"};
}

}  // namespace

// Every operation of the headers.
#include "refusals.inc"

namespace talvern::log {

// Nobody reads it yet, which is no reason to refuse what is traced.
[[gnu::weak]] void trace(unsigned level, const char* format, ...) {}

}  // namespace talvern::log

namespace talvern::config {

[[gnu::weak]] std::string Value::asXML() const { notProvided("config::Value::asXML"); }

[[gnu::weak]] extern const char* const OPSTATE_STR[] = {"UNKNOWN", "UP", "DOWN", "PENDING", "FAILED"};
[[gnu::weak]] extern const char* const ADMINSTATE_STR[] = {"UNKNOWN", "ENABLED", "DISABLED"};
[[gnu::weak]] extern const char* const RETURNCODE_STR[] = {
    "OK",   "FAILED",       "NOT_FOUND",    "ALREADY_EXISTS", "NOT_PERMITTED",
    "BUSY", "INVALID_NAME", "INVALID_TYPE", "IN_USE",         "NULL_VALUE"};

}  // namespace talvern::config

namespace talvern::config::messaging {

// Inline, since that makes the tables which come with a virtual function as weak as the function.
inline const char* ValidationException::what() const noexcept { return "a value is not acceptable"; }
inline const char* ConfigChangeException::what() const noexcept { return "a change is not acceptable"; }

}  // namespace talvern::config::messaging

namespace {

// What is inline is given out only where it is used.
[[gnu::used]] void useExceptions(bool isValue) {
    if (isValue) throw talvern::config::messaging::ValidationException{"", ""};
    throw talvern::config::messaging::ConfigChangeException{0, "", {}};
}

}  // namespace
