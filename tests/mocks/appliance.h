#pragma once

#include "mocks/mock.h"
#include "platform/applianceUtils.h"

struct ApplianceUtilsMock {
    using Components = std::vector<talvern::applianceUtils::ComponentFirmware>;
    using FileErrors = std::vector<talvern::applianceUtils::resetFileError>;

    ApplianceUtilsMock() {
        ON_CALL(*this, getComponentInfo).WillByDefault(deliver(Components{{1, "one"}, {2, "two"}}));
        ON_CALL(*this, deviceRESET).WillByDefault(deliver(FileErrors{{"a", 1}, {"b", 2}}, 0));
    }

    MOCK_METHOD(std::string, getSerialNumber, ());
    MOCK_METHOD(std::string, getMachineType, ());
    MOCK_METHOD(std::string, getMTM, ());
    MOCK_METHOD(bool, isAppliance, ());
    MOCK_METHOD(std::int32_t, getCPUCount, ());
    MOCK_METHOD(std::string, getLocale, ());
    MOCK_METHOD(bool, setLocale, (const char* locale, const char* modifier));
    MOCK_METHOD(bool, setDefaultLocale, (const char* locale));
    MOCK_METHOD(Texts, getDateTime, ());
    MOCK_METHOD(bool, setDateTime, (std::int64_t time, std::int32_t& errorNumber));
    MOCK_METHOD(std::string, getTimezone, ());
    MOCK_METHOD(bool, setTimezone, (const char* name));
    MOCK_METHOD(Texts, getTimezones, ());
    MOCK_METHOD(void, getHardwareInfo, (talvern::applianceUtils::HWInfo & info));
    MOCK_METHOD(bool, getComponentInfo, (Components & components));
    MOCK_METHOD(bool, syncNTPServer, (const char* server));
    MOCK_METHOD(std::int32_t, deviceRESET, (FileErrors & errors));
    MOCK_METHOD(bool, areHostSSHKeysStrong, ());
    MOCK_METHOD(std::int32_t, resetHostSSHKeys, ());
    MOCK_METHOD(void, triggerException, (const char* text));
};

struct DiagnosticUtilsMock {
    MOCK_METHOD(bool, dnsResolve, (const std::string& host, std::string& result));
    MOCK_METHOD(bool, tcpConnect, (const std::string& host, std::int32_t port, std::string& error));
    MOCK_METHOD(bool, pingHost, (const std::string& host, std::string& output));
    MOCK_METHOD(std::int32_t, networkReady, ());
};
