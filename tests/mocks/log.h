#pragma once

#include "mocks/mock.h"

struct LogMock {
    MOCK_METHOD(void, init, (const char*));
    MOCK_METHOD(void, line, (unsigned level, const std::string& text));
};
