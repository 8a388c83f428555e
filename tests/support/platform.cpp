#include "support/platform.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "support/jniTable.h"

// All operations that have fixed parameters.
#include "operations.inc"

namespace platform {

namespace {

std::atomic<std::size_t> operations;
std::vector<std::function<void()>> whenForgottenActions;

}  // namespace

void operationStarts() {
    ++operations;
    if (JniTable* table = currentJniTable()) table->note("platform");
    if (beforeOperation) beforeOperation();
}

std::size_t operationCount() { return operations; }

void whenForgotten(std::function<void()> action) { whenForgottenActions.push_back(std::move(action)); }

void forgetMocks() {
    for (const auto& action : std::exchange(whenForgottenActions, {})) action();
    beforeOperation = nullptr;
    isEmpty = false;
    operations = 0;
}

void traced(unsigned level, const std::string& line) {
    if (JniTable* table = currentJniTable()) table->note("trace");
    if (answerOf<&traced>) answerOf<&traced>(level, line);
}

talvern::config::Value* sampleTree() {
    using namespace talvern::config;
    static const std::unique_ptr<Value> tree = [] {
        auto list = std::make_unique<ArrayValue>(false);
        list->add(std::make_unique<SimpleValue>("one", true));
        list->add(nullptr);
        list->add(std::make_unique<StructValue>(true));
        auto root = std::make_unique<StructValue>(true);
        root->put("list", std::move(list));
        root->put("text", std::make_unique<SimpleValue>("two", false));
        return root;
    }();
    return tree.get();
}

}  // namespace platform

namespace talvern::log {

void trace(unsigned level, const char* format, ...) {
    const UncountedAllocations uncounted;
    std::va_list arguments;
    va_start(arguments, format);
    char* line = nullptr;
    const int length = vasprintf(&line, format, arguments);
    va_end(arguments);
    const std::unique_ptr<char, decltype(&std::free)> owner{line, &std::free};
    platform::traced(level, length < 0 ? std::string{} : std::string{line});
}

}  // namespace talvern::log

namespace talvern::config {

const char* const OPSTATE_STR[] = {"UNKNOWN", "UP", "DOWN", "PENDING", "FAILED"};
const char* const ADMINSTATE_STR[] = {"UNKNOWN", "ENABLED", "DISABLED"};
const char* const RETURNCODE_STR[] = {
    "OK",           "FAILED",       "NOT_FOUND", "ALREADY_EXISTS", "NOT_PERMITTED",    "BUSY",
    "INVALID_NAME", "INVALID_TYPE", "IN_USE",    "NULL_VALUE",     "NO_JAVA_CONSTANT", nullptr};

const char* messaging::ValidationException::what() const noexcept { return "validation failed"; }
const char* messaging::ConfigChangeException::what() const noexcept { return "change failed"; }

std::string Value::asXML() const { return platform::operation<&Value::asXML>(*this); }

}  // namespace talvern::config
