#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The appliance's user accounts, with their passwords and SSH keys.
/// Texts are modified UTF-8, and copies that the operation may keep. Every operation may be called from any
/// thread, and may throw. A status is 0 for success; any other value reaches Java as it is, so 99, which Java
/// sees after an exception, is better avoided.
namespace talvern::userManagerUtils {

/// How a user proves who they are; the bridge asks for passwords only.
// NOLINTNEXTLINE(readability-identifier-naming): this interface's own name
enum class loginType : std::int32_t { password = 0 };

/// Creates an account that can log in with the password. Returns a status.
std::int32_t addUser(std::string name, std::string password);

/// Removes the account, its password and its SSH keys. Returns a status.
std::int32_t deleteUser(std::string name);

/// Lets who holds the private half of `key` log in as the user. `key` is one line as in OpenSSH's
/// authorized_keys file, without options. Returns a status.
std::int32_t sshKeyAdd(std::string name, std::string key);

/// Removes all SSH keys of the user. Returns a status.
std::int32_t sshKeyDel(std::string name);

/// Replaces what the user proves themselves with. False if the user or the new password is refused.
bool changePasswd(loginType type, std::string name, std::string newPassword);

/// Whether this is the user's password.
bool login(loginType type, std::string name, std::string password);

/// The names of all accounts; Java receives them in this order.
std::vector<std::string> listUsers();

}  // namespace talvern::userManagerUtils
