#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>

#include "platform/processManagerUtils.h"

struct ProcessManagerMock {
    using PlatformLogLevel = talvern::processManagerUtils::PlatformLogLevel;

    ProcessManagerMock() {
        ON_CALL(*this, getPlatformLogLevel)
            .WillByDefault(
                testing::DoAll(testing::SetArgReferee<0>(PlatformLogLevel::error), testing::Return(0)));
    }

    MOCK_METHOD(std::uint32_t, getPlatformTraceMask, ());
    MOCK_METHOD(std::int32_t, getPlatformLogLevel, (PlatformLogLevel&));
    MOCK_METHOD(std::int32_t, setPlatformLogLevel, (PlatformLogLevel));
    MOCK_METHOD(std::int32_t, distributeLogging, (unsigned int, int));
    MOCK_METHOD(std::int32_t, requestReboot, ());
    MOCK_METHOD(std::int32_t, requestShutdown, ());
    MOCK_METHOD(std::int32_t, signalApplicationIsUnhealthy, (const std::string&));
    MOCK_METHOD(std::int32_t, signalIAmReady, (const std::string&, bool));
};
