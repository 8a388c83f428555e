#pragma once

#include "mocks/mock.h"
#include "platform/userManagerUtils.h"

struct UserManagerMock {
    using LoginType = talvern::userManagerUtils::loginType;

    MOCK_METHOD(std::int32_t, addUser, (std::string name, std::string password));
    MOCK_METHOD(std::int32_t, deleteUser, (std::string name));
    MOCK_METHOD(std::int32_t, sshKeyAdd, (std::string name, std::string key));
    MOCK_METHOD(std::int32_t, sshKeyDel, (std::string name));
    MOCK_METHOD(bool, changePasswd, (LoginType type, std::string name, std::string newPassword));
    MOCK_METHOD(bool, login, (LoginType type, std::string name, std::string password));
    MOCK_METHOD(Texts, listUsers, ());
};
