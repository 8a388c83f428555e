#pragma once

#include "mocks/mock.h"
#include "platform/types.h"

struct EthernetInterfacesMock {
    using KeyValPair = talvern::types::KeyValPair;
    using InterfaceStatus = talvern::types::InterfaceStatus;

    EthernetInterfacesMock() {
        using testing::Return;
        status.details = {&eth0, &eth1};
        ON_CALL(*this, getInterfaceNames).WillByDefault([] {
            return std::make_unique<Texts>(Texts{"eth0", "eth1"});
        });
        ON_CALL(*this, getInterfaces).WillByDefault(deliver(status.details));
        ON_CALL(*this, getInterface).WillByDefault(Return(&eth0));
        ON_CALL(*this, getInterfaceStatus).WillByDefault(Return(&status));
        ON_CALL(*this, getAggregateStatus).WillByDefault(Return(&status));
        ON_CALL(*this, getVLANStatus).WillByDefault(Return(&status));
    }

    MOCK_METHOD(std::unique_ptr<Texts>, getInterfaceNames, ());
    MOCK_METHOD(bool, getInterfaces, (std::vector<KeyValPair*> & interfaces));
    MOCK_METHOD(KeyValPair*, getInterface, (const std::string& name));
    MOCK_METHOD(std::int32_t, setInterface, (KeyValPair & attributes));
    MOCK_METHOD(std::int32_t, clearInterface, (const std::string& name));
    MOCK_METHOD(InterfaceStatus*, getInterfaceStatus, (std::string name));
    MOCK_METHOD(InterfaceStatus*, getAggregateStatus, (std::string name));
    MOCK_METHOD(InterfaceStatus*, getVLANStatus, (std::string name));
    MOCK_METHOD(std::int32_t, addVIPToInterface, (std::string name, std::string address));
    MOCK_METHOD(std::int32_t, removeVIPFromInterface, (std::string name, std::string address));
    MOCK_METHOD(std::int32_t, addVIPToLoopback, (std::string address));
    MOCK_METHOD(std::int32_t, removeVIPFromLoopback, (std::string address));
    MOCK_METHOD(std::int32_t, setHWAddressImmediate, (std::string name, std::string address));
    MOCK_METHOD(std::int32_t, resetHWAddressImmediate, (std::string name));

    KeyValPair eth0{{{"mtu", "1500"}, {"name", "eth0"}}};
    KeyValPair eth1{{{"name", "eth1"}}};
    InterfaceStatus status;
};

struct HostsUtilsMock {
    MOCK_METHOD(Texts, getAddresses, ());
    MOCK_METHOD(Texts, getHostnames, (const std::string& address));
    MOCK_METHOD(bool, setHostnames, (const std::string& address, const Texts& hostnames));
    MOCK_METHOD(bool, deleteHostnames, (const std::string& address));
};

struct NameServersMock {
    MOCK_METHOD(Texts, getNameServers, (Texts * companions));
    MOCK_METHOD(std::int32_t, setNameServers, (const Texts& servers, const Texts* companions));
    MOCK_METHOD(Texts, getSearchDomains, ());
    MOCK_METHOD(std::int32_t, setSearchDomains, (const Texts& domains));
};

struct NodeNameMock {
    MOCK_METHOD(std::int32_t, init, ());
    MOCK_METHOD(std::string, get, ());
    MOCK_METHOD(std::int32_t, set, (const std::string& name));
};

struct TimeServersMock {
    MOCK_METHOD(Texts, getTimeServers, (Texts * companions));
    MOCK_METHOD(std::int32_t, setTimeServers, (const Texts& servers, Texts* companions));
};
