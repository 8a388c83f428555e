#include "mocks/config.h"

#include "platform/messaging.h"

namespace talvern::config {

const char* const OPSTATE_STR[] = {"UNKNOWN", "UP", "DOWN", "PENDING", "FAILED"};
const char* const ADMINSTATE_STR[] = {"UNKNOWN", "ENABLED", "DISABLED"};
const char* const RETURNCODE_STR[] = {
    "OK",           "FAILED",       "NOT_FOUND", "ALREADY_EXISTS", "NOT_PERMITTED",   "BUSY",
    "INVALID_NAME", "INVALID_TYPE", "IN_USE",    "NULL_VALUE",     "NO_JAVA_CONSTANT"};

const char* messaging::ValidationException::what() const noexcept { return "validation failed"; }
const char* messaging::ConfigChangeException::what() const noexcept { return "change failed"; }

using Mock = ConfigServiceMock;
using Code = Service::ReturnCode;
using Text = std::string;

Text Value::asXML() const { return operation(&Mock::asXML, *this); }

Code Service::createObject(const Text& type, const Text& parent, const Text& name, const Value* value,
                           AdminState state, bool replace) {
    return operation(&Mock::createObject, type, parent, name, value, state, replace);
}
Code Service::updateObject(const Text& type, const Text& parent, const Text& name, const Value* value,
                           bool merge) {
    return operation(&Mock::updateObject, type, parent, name, value, merge);
}
Code Service::deleteObject(const Text& type, const Text& parent, const Text& name) {
    return operation(&Mock::deleteObject, type, parent, name);
}
Code Service::resetObject(const Text& type, const Text& parent, const Text& name) {
    return operation(&Mock::resetObject, type, parent, name);
}
Code Service::queryObject(const Text& type, const Text& parent, const Text& name, Value** value) {
    return operation(&Mock::queryObject, type, parent, name, value);
}
Code Service::validateObject(const Text& type, const Value* value) {
    return operation(&Mock::validateObject, type, value);
}
Code Service::getNamesofObject(const Text& type, const Text& parent, Texts& names) {
    return operation(&Mock::getNamesofObject, type, parent, names);
}
Texts Service::getObjectTypes() { return operation(&Mock::getObjectTypes); }
Code Service::getAdminState(const Text& type, const Text& parent, const Text& name, AdminState& state) {
    return operation(&Mock::getAdminState, type, parent, name, state);
}
Code Service::setAdminState(const Text& type, const Text& parent, const Text& name, AdminState state) {
    return operation(&Mock::setAdminState, type, parent, name, state);
}
Code Service::getOpState(const Text& type, const Text& parent, const Text& name, OpState& state) {
    return operation(&Mock::getOpState, type, parent, name, state);
}
Code Service::setOpState(const Text& type, const Text& parent, const Text& name, OpState state) {
    return operation(&Mock::setOpState, type, parent, name, state);
}

}  // namespace talvern::config

ConfigServiceMock::ConfigServiceMock() {
    using namespace talvern::config;
    auto list = std::make_unique<ArrayValue>(false);
    list->add(std::make_unique<SimpleValue>("one", true));
    list->add(nullptr);
    list->add(std::make_unique<StructValue>(true));
    auto root = std::make_unique<StructValue>(true);
    root->put("list", std::move(list));
    root->put("text", std::make_unique<SimpleValue>("two", false));
    tree = std::move(root);
    ON_CALL(*this, queryObject).WillByDefault([this](auto&, auto&, auto&, Value** value) {
        *value = tree.get();
        return Code::OK;
    });
    ON_CALL(*this, getNamesofObject).WillByDefault(deliver<2>(Texts{"eth0", "eth1"}, Code::OK));
}
