#pragma once

#include "mocks/mock.h"
#include "platform/statusUtils.h"

struct StatusUtilsMock {
    StatusUtilsMock();

    MOCK_METHOD(bool, getFanStatus, (std::vector<talvern::statusUtils::FanStatus>&));
    MOCK_METHOD(bool, getTempStatus, (std::vector<talvern::statusUtils::TempStatus>&));
    MOCK_METHOD(bool, getPowerStatus, (std::vector<talvern::statusUtils::PowerStatus>&));
    MOCK_METHOD(bool, getVoltageStatus, (std::vector<talvern::statusUtils::VoltStatus>&));
    MOCK_METHOD(bool, getVolumeStatus, (std::vector<talvern::statusUtils::VolumeStatus>&));
    MOCK_METHOD(bool, getRaidPhysDiskStatus, (std::vector<talvern::statusUtils::DiskSnapShot*>&));
    MOCK_METHOD(bool, getCPUUsage, (std::vector<talvern::statusUtils::CPUUsage>&));
    MOCK_METHOD(bool, getCPUDetailedUsage, (std::vector<talvern::statusUtils::CPUUsage>&));
    MOCK_METHOD(bool, getMemoryUse, (std::uint32_t & total, std::uint32_t& free));
    MOCK_METHOD(std::int64_t, getUptime, ());
    MOCK_METHOD(std::int32_t, getFlashStatus, (talvern::statusUtils::FlashStatus&));
    MOCK_METHOD(bool, getBatteryStatus, (talvern::statusUtils::BatteryStatus&));
    MOCK_METHOD(bool, batteryReplaced, ());
    MOCK_METHOD(std::int32_t, getIntrusionStatus, ());
    MOCK_METHOD(std::int32_t, clearIntrusionStatus, ());
    MOCK_METHOD(void, setLocateLED, (bool on));
    MOCK_METHOD(bool, isServiceReady, (talvern::statusUtils::ServiceStatus service, std::int32_t seconds));
    MOCK_METHOD(bool, isNetServiceReady, (talvern::statusUtils::ServiceStatus service, std::int32_t seconds));
};
