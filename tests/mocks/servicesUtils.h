#pragma once

#include <cstdint>
#include <gmock/gmock.h>

struct ServicesMock {
    MOCK_METHOD(std::int32_t, startTest, (const char* name, std::int32_t interval));
    MOCK_METHOD(std::int32_t, stopTest, (const char* name));
    MOCK_METHOD(std::int32_t, performTest, (const char* name, std::int32_t count));
};
