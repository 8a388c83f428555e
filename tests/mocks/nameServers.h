#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>
#include <vector>

struct NameServersMock {
    using Texts = std::vector<std::string>;

    NameServersMock() {
        ON_CALL(*this, getNameServers).WillByDefault(testing::Return(Texts{"10.0.0.1", "10.0.0.2"}));
        ON_CALL(*this, getSearchDomains).WillByDefault(testing::Return(Texts{"example.com", "example.org"}));
    }

    MOCK_METHOD(Texts, getNameServers, (Texts * companions));
    MOCK_METHOD(std::int32_t, setNameServers, (const Texts& servers, const Texts* companions));
    MOCK_METHOD(Texts, getSearchDomains, ());
    MOCK_METHOD(std::int32_t, setSearchDomains, (const Texts& domains));
};
