#pragma once

#include <cstdint>
#include <gmock/gmock.h>
#include <string>

#include "platform/firmwareManagerUtils.h"

struct FirmwareManagerMock {
    using UpgradeCallback = talvern::firmwareManagerUtils::UpgradeCallback;

    MOCK_METHOD(bool, isReleaseKeyed, ());
    MOCK_METHOD(std::int32_t, rollback, ());
    MOCK_METHOD(std::int32_t, deletePrevious, ());
    MOCK_METHOD(std::int32_t, reflash, (const std::string&));
    MOCK_METHOD(std::int32_t, upgrade, (const std::string&, bool, bool, UpgradeCallback*));
};
