#pragma once

#include <gmock/gmock.h>

struct SnmpMock {
    MOCK_METHOD(bool, start, ());
    MOCK_METHOD(bool, stop, ());
    MOCK_METHOD(bool, restart, ());
};
