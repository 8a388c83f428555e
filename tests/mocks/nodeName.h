#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>

struct NodeNameMock {
    NodeNameMock() { ON_CALL(*this, get).WillByDefault(testing::Return("rack-1")); }

    MOCK_METHOD(std::int32_t, init, ());
    MOCK_METHOD(std::string, get, ());
    MOCK_METHOD(std::int32_t, set, (const std::string& name));
};
