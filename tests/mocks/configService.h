#pragma once

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

#include "mocks/mock.h"
#include "platform/configService.h"

struct ConfigServiceMock {
    using Service = talvern::config::Service;
    using Value = talvern::config::Value;
    using Text = std::string;

    ConfigServiceMock();

    /// What `queryObject` hands out by default: all kinds of values.
    std::unique_ptr<Value> tree;

    MOCK_METHOD(Service::ReturnCode, createObject,
                (const Text&, const Text&, const Text&, const Value*, Service::AdminState, bool));
    MOCK_METHOD(Service::ReturnCode, updateObject,
                (const Text&, const Text&, const Text&, const Value*, bool));
    MOCK_METHOD(Service::ReturnCode, deleteObject, (const Text&, const Text&, const Text&));
    MOCK_METHOD(Service::ReturnCode, resetObject, (const Text&, const Text&, const Text&));
    MOCK_METHOD(Service::ReturnCode, queryObject, (const Text&, const Text&, const Text&, Value**));
    MOCK_METHOD(Service::ReturnCode, validateObject, (const Text&, const Value*));
    MOCK_METHOD(Service::ReturnCode, getNamesofObject, (const Text&, const Text&, std::vector<Text>&));
    MOCK_METHOD(std::vector<Text>, getObjectTypes, ());
    MOCK_METHOD(Service::ReturnCode, getAdminState,
                (const Text&, const Text&, const Text&, Service::AdminState&));
    MOCK_METHOD(Service::ReturnCode, setAdminState,
                (const Text&, const Text&, const Text&, Service::AdminState));
    MOCK_METHOD(Service::ReturnCode, getOpState, (const Text&, const Text&, const Text&, Service::OpState&));
    MOCK_METHOD(Service::ReturnCode, setOpState, (const Text&, const Text&, const Text&, Service::OpState));
    MOCK_METHOD(Text, asXML, (const Value&));
};

namespace talvern::config {

// The contract binds the platform to numbers that have a name.
inline void makeHostile(Service::ReturnCode&, platform::Hostility) {}
inline void makeHostile(Service::AdminState&, platform::Hostility) {}
inline void makeHostile(Service::OpState&, platform::Hostility) {}

}  // namespace talvern::config
