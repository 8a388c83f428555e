#pragma once

#include "mocks/mock.h"
#include "platform/configService.h"

struct ConfigServiceMock {
    using Service = talvern::config::Service;
    using Value = talvern::config::Value;
    using Text = std::string;
    using Code = Service::ReturnCode;

    ConfigServiceMock();

    /// What `queryObject` hands out by default: all kinds of values.
    std::unique_ptr<Value> tree;

    MOCK_METHOD(Code, createObject,
                (const Text&, const Text&, const Text&, const Value*, Service::AdminState, bool));
    MOCK_METHOD(Code, updateObject, (const Text&, const Text&, const Text&, const Value*, bool));
    MOCK_METHOD(Code, deleteObject, (const Text&, const Text&, const Text&));
    MOCK_METHOD(Code, resetObject, (const Text&, const Text&, const Text&));
    MOCK_METHOD(Code, queryObject, (const Text&, const Text&, const Text&, Value**));
    MOCK_METHOD(Code, validateObject, (const Text&, const Value*));
    MOCK_METHOD(Code, getNamesofObject, (const Text&, const Text&, Texts&));
    MOCK_METHOD(Texts, getObjectTypes, ());
    MOCK_METHOD(Code, getAdminState, (const Text&, const Text&, const Text&, Service::AdminState&));
    MOCK_METHOD(Code, setAdminState, (const Text&, const Text&, const Text&, Service::AdminState));
    MOCK_METHOD(Code, getOpState, (const Text&, const Text&, const Text&, Service::OpState&));
    MOCK_METHOD(Code, setOpState, (const Text&, const Text&, const Text&, Service::OpState));
    MOCK_METHOD(Text, asXML, (const Value&));
};

namespace talvern::config {

// The contract binds the platform to numbers that have a name.
inline void makeHostile(Service::ReturnCode&, platform::Hostility) {}
inline void makeHostile(Service::AdminState&, platform::Hostility) {}
inline void makeHostile(Service::OpState&, platform::Hostility) {}

}  // namespace talvern::config
