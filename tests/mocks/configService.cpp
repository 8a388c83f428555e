#include "mocks/configService.h"

using platform::operation;
using testing::_;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;

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
    ON_CALL(*this, queryObject)
        .WillByDefault(DoAll([this](auto&, auto&, auto&, Value** value) { *value = tree.get(); },
                             Return(Service::ReturnCode::OK)));
    ON_CALL(*this, getNamesofObject)
        .WillByDefault(
            DoAll(SetArgReferee<2>(std::vector<Text>{"eth0", "eth1"}), Return(Service::ReturnCode::OK)));
    ON_CALL(*this, getObjectTypes).WillByDefault(Return(std::vector<Text>{"Interface", "Group"}));
    ON_CALL(*this, getAdminState)
        .WillByDefault(
            DoAll(SetArgReferee<3>(Service::AdminState::DISABLED), Return(Service::ReturnCode::OK)));
    ON_CALL(*this, getOpState)
        .WillByDefault(DoAll(SetArgReferee<3>(Service::OpState::UP), Return(Service::ReturnCode::OK)));
    ON_CALL(*this, asXML).WillByDefault(Return("<value/>"));
}

namespace talvern::config {

const char* const OPSTATE_STR[] = {"UNKNOWN", "UP", "DOWN", "PENDING", "FAILED"};
const char* const ADMINSTATE_STR[] = {"UNKNOWN", "ENABLED", "DISABLED"};
const char* const RETURNCODE_STR[] = {
    "OK",           "FAILED",       "NOT_FOUND", "ALREADY_EXISTS", "NOT_PERMITTED",   "BUSY",
    "INVALID_NAME", "INVALID_TYPE", "IN_USE",    "NULL_VALUE",     "NO_JAVA_CONSTANT"};

std::string Value::asXML() const { return operation(&ConfigServiceMock::asXML, *this); }

using Code = Service::ReturnCode;
using Text = std::string;

Code Service::createObject(const Text& type, const Text& parent, const Text& name, const Value* value,
                           AdminState state, bool replace) {
    return operation(&ConfigServiceMock::createObject, type, parent, name, value, state, replace);
}
Code Service::updateObject(const Text& type, const Text& parent, const Text& name, const Value* value,
                           bool merge) {
    return operation(&ConfigServiceMock::updateObject, type, parent, name, value, merge);
}
Code Service::deleteObject(const Text& type, const Text& parent, const Text& name) {
    return operation(&ConfigServiceMock::deleteObject, type, parent, name);
}
Code Service::resetObject(const Text& type, const Text& parent, const Text& name) {
    return operation(&ConfigServiceMock::resetObject, type, parent, name);
}
Code Service::queryObject(const Text& type, const Text& parent, const Text& name, Value** value) {
    return operation(&ConfigServiceMock::queryObject, type, parent, name, value);
}
Code Service::validateObject(const Text& type, const Value* value) {
    return operation(&ConfigServiceMock::validateObject, type, value);
}
Code Service::getNamesofObject(const Text& type, const Text& parent, std::vector<Text>& names) {
    return operation(&ConfigServiceMock::getNamesofObject, type, parent, names);
}
std::vector<Text> Service::getObjectTypes() { return operation(&ConfigServiceMock::getObjectTypes); }
Code Service::getAdminState(const Text& type, const Text& parent, const Text& name, AdminState& state) {
    return operation(&ConfigServiceMock::getAdminState, type, parent, name, state);
}
Code Service::setAdminState(const Text& type, const Text& parent, const Text& name, AdminState state) {
    return operation(&ConfigServiceMock::setAdminState, type, parent, name, state);
}
Code Service::getOpState(const Text& type, const Text& parent, const Text& name, OpState& state) {
    return operation(&ConfigServiceMock::getOpState, type, parent, name, state);
}
Code Service::setOpState(const Text& type, const Text& parent, const Text& name, OpState state) {
    return operation(&ConfigServiceMock::setOpState, type, parent, name, state);
}

}  // namespace talvern::config
