#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>
#include <vector>

struct TimeServersMock {
    using Texts = std::vector<std::string>;

    TimeServersMock() {
        ON_CALL(*this, getTimeServers).WillByDefault(testing::Return(Texts{"ntp1", "ntp2"}));
    }

    MOCK_METHOD(Texts, getTimeServers, (Texts * companions));
    MOCK_METHOD(std::int32_t, setTimeServers, (const Texts& servers, Texts* companions));
};
