#include "mocks/users.h"

namespace talvern::userManagerUtils {

using Mock = UserManagerMock;
using Text = std::string;

std::int32_t addUser(Text name, Text password) { return operation(&Mock::addUser, name, password); }
std::int32_t deleteUser(Text name) { return operation(&Mock::deleteUser, name); }
std::int32_t sshKeyAdd(Text name, Text key) { return operation(&Mock::sshKeyAdd, name, key); }
std::int32_t sshKeyDel(Text name) { return operation(&Mock::sshKeyDel, name); }
bool changePasswd(loginType type, Text name, Text newPassword) {
    return operation(&Mock::changePasswd, type, name, newPassword);
}
bool login(loginType type, Text name, Text password) { return operation(&Mock::login, type, name, password); }
Texts listUsers() { return operation(&Mock::listUsers); }

}  // namespace talvern::userManagerUtils
