#pragma once

#include <gmock/gmock.h>

#include "platform/applianceUtils.h"

struct ApplianceUtilsMock {
    using Components = std::vector<talvern::applianceUtils::ComponentFirmware>;
    using FileErrors = std::vector<talvern::applianceUtils::resetFileError>;

    ApplianceUtilsMock() {
        using testing::DoAll;
        using testing::Return;
        using testing::SetArgReferee;
        using Texts = std::vector<std::string>;
        ON_CALL(*this, getSerialNumber).WillByDefault(Return("serial"));
        ON_CALL(*this, getMachineType).WillByDefault(Return("type"));
        ON_CALL(*this, getMTM).WillByDefault(Return("mtm"));
        ON_CALL(*this, getDateTime).WillByDefault(Return(Texts{"date", "time"}));
        ON_CALL(*this, getTimezones).WillByDefault(Return(Texts{"UTC", "Asia/Tokyo"}));
        ON_CALL(*this, getComponentInfo)
            .WillByDefault(DoAll(SetArgReferee<0>(Components{{1, "one"}, {2, "two"}}), Return(true)));
        ON_CALL(*this, deviceRESET)
            .WillByDefault(DoAll(SetArgReferee<0>(FileErrors{{"a", 1}, {"b", 2}}), Return(0)));
    }

    MOCK_METHOD(std::string, getSerialNumber, ());
    MOCK_METHOD(std::string, getMachineType, ());
    MOCK_METHOD(std::string, getMTM, ());
    MOCK_METHOD(bool, isAppliance, ());
    MOCK_METHOD(std::int32_t, getCPUCount, ());
    MOCK_METHOD(std::string, getLocale, ());
    MOCK_METHOD(bool, setLocale, (const char* locale, const char* modifier));
    MOCK_METHOD(bool, setDefaultLocale, (const char* locale));
    MOCK_METHOD(std::vector<std::string>, getDateTime, ());
    MOCK_METHOD(bool, setDateTime, (std::int64_t time, std::int32_t& errorNumber));
    MOCK_METHOD(std::string, getTimezone, ());
    MOCK_METHOD(bool, setTimezone, (const char* name));
    MOCK_METHOD(std::vector<std::string>, getTimezones, ());
    MOCK_METHOD(void, getHardwareInfo, (talvern::applianceUtils::HWInfo & info));
    MOCK_METHOD(bool, getComponentInfo, (Components & components));
    MOCK_METHOD(bool, syncNTPServer, (const char* server));
    MOCK_METHOD(std::int32_t, deviceRESET, (FileErrors & errors));
    MOCK_METHOD(bool, areHostSSHKeysStrong, ());
    MOCK_METHOD(std::int32_t, resetHostSSHKeys, ());
    MOCK_METHOD(void, triggerException, (const char* text));
};
