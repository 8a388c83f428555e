#pragma once

#include "mocks/mock.h"
#include "platform/firmwareManagerUtils.h"
#include "platform/processManagerUtils.h"

struct FirmwareManagerMock {
    using UpgradeCallback = talvern::firmwareManagerUtils::UpgradeCallback;

    MOCK_METHOD(bool, isReleaseKeyed, ());
    MOCK_METHOD(std::int32_t, rollback, ());
    MOCK_METHOD(std::int32_t, deletePrevious, ());
    MOCK_METHOD(std::int32_t, reflash, (const std::string&));
    MOCK_METHOD(std::int32_t, upgrade, (const std::string&, bool, bool, UpgradeCallback*));
};

struct ProcessManagerMock {
    using PlatformLogLevel = talvern::processManagerUtils::PlatformLogLevel;

    MOCK_METHOD(std::uint32_t, getPlatformTraceMask, ());
    MOCK_METHOD(std::int32_t, getPlatformLogLevel, (PlatformLogLevel&));
    MOCK_METHOD(std::int32_t, setPlatformLogLevel, (PlatformLogLevel));
    MOCK_METHOD(std::int32_t, distributeLogging, (unsigned int, int));
    MOCK_METHOD(std::int32_t, requestReboot, ());
    MOCK_METHOD(std::int32_t, requestShutdown, ());
    MOCK_METHOD(std::int32_t, signalApplicationIsUnhealthy, (const std::string&));
    MOCK_METHOD(std::int32_t, signalIAmReady, (const std::string&, bool));
};
