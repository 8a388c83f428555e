#pragma once

#include "mocks/mock.h"

struct ServicesMock {
    MOCK_METHOD(std::int32_t, startTest, (const char* name, std::int32_t interval));
    MOCK_METHOD(std::int32_t, stopTest, (const char* name));
    MOCK_METHOD(std::int32_t, performTest, (const char* name, std::int32_t count));
};

struct SnmpMock {
    MOCK_METHOD(bool, start, ());
    MOCK_METHOD(bool, stop, ());
    MOCK_METHOD(bool, restart, ());
};
