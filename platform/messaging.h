#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

/// What the configuration service throws when it refuses a request.
///
/// The platform defines `what()` of both, and so owns their type information. The order of the fields is
/// part of the binary interface.
namespace talvern::config::messaging {

/// A value is not acceptable. Java receives both texts, in this order.
class ValidationException : public std::exception {
  public:
    ValidationException(std::string firstText, std::string secondText)
        : first{std::move(firstText)}, second{std::move(secondText)} {}

    [[nodiscard]] const char* what() const noexcept override;

    std::string first;
    std::string second;
};

/// A change is not acceptable in the present configuration. Java receives all three fields.
class ConfigChangeException : public std::exception {
  public:
    ConfigChangeException(std::int32_t exceptionCode, std::string exceptionText, std::vector<std::string> textList)
        : code{exceptionCode}, text{std::move(exceptionText)}, texts{std::move(textList)} {}

    [[nodiscard]] const char* what() const noexcept override;

    std::int32_t code;
    std::string text;
    std::vector<std::string> texts;
};

}  // namespace talvern::config::messaging
