#pragma once

#include <gmock/gmock.h>
#include <string>
#include <vector>

struct HostsUtilsMock {
    using Texts = std::vector<std::string>;

    HostsUtilsMock() {
        ON_CALL(*this, getAddresses).WillByDefault(testing::Return(Texts{"10.0.0.1", "10.0.0.2"}));
        ON_CALL(*this, getHostnames).WillByDefault(testing::Return(Texts{"db.example.com", "db"}));
        ON_CALL(*this, setHostnames).WillByDefault(testing::Return(true));
        ON_CALL(*this, deleteHostnames).WillByDefault(testing::Return(true));
    }

    MOCK_METHOD(Texts, getAddresses, ());
    MOCK_METHOD(Texts, getHostnames, (const std::string& address));
    MOCK_METHOD(bool, setHostnames, (const std::string& address, const Texts& hostnames));
    MOCK_METHOD(bool, deleteHostnames, (const std::string& address));
};
