#include "mocks/userManagerUtils.h"

#include "mocks/mock.h"

namespace talvern::userManagerUtils {

std::int32_t addUser(std::string name, std::string password) {
    return platform::operation(&UserManagerMock::addUser, name, password);
}
std::int32_t deleteUser(std::string name) { return platform::operation(&UserManagerMock::deleteUser, name); }
std::int32_t sshKeyAdd(std::string name, std::string key) {
    return platform::operation(&UserManagerMock::sshKeyAdd, name, key);
}
std::int32_t sshKeyDel(std::string name) { return platform::operation(&UserManagerMock::sshKeyDel, name); }
bool changePasswd(loginType type, std::string name, std::string newPassword) {
    return platform::operation(&UserManagerMock::changePasswd, type, name, newPassword);
}
bool login(loginType type, std::string name, std::string password) {
    return platform::operation(&UserManagerMock::login, type, name, password);
}
std::vector<std::string> listUsers() { return platform::operation(&UserManagerMock::listUsers); }

}  // namespace talvern::userManagerUtils
