#pragma once

#include <gmock/gmock.h>
#include <string>

struct LogMock {
    MOCK_METHOD(void, init, (const char*));
    MOCK_METHOD(void, line, (unsigned level, const std::string& text));
};
