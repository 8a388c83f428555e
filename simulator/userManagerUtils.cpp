#include <algorithm>
#include <crypt.h>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "memory.h"
#include "simulated.h"

namespace talvern::userManagerUtils::simulated {

namespace {

constexpr int notFound = 2;
constexpr int alreadyExists = 3;
constexpr int notPermitted = 4;
constexpr int refused = 6;

constexpr auto administrator = "admin";

bool consistsOf(const std::string& text, const char* characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string::npos;
}

bool isUserName(const std::string& name) {
    return consistsOf(name, "abcdefghijklmnopqrstuvwxyz0123456789_-") && name.size() <= 32 &&
           !consistsOf(name.substr(0, 1), "0123456789-");
}

struct User {
    std::string name;
    std::string passwordHash = "*";
    std::vector<std::string> sshKeys = {};
};

/// A new appliance has its administrator, who can't log in before a password is set.
struct State {
    std::vector<User> users = {{administrator}};
};

/// The user of this name, or null.
template <typename AnyState>
auto find(AnyState& state, const std::string& name) {
    const auto user =
        std::find_if(state.users.begin(), state.users.end(), [&](const User& u) { return u.name == name; });
    return user == state.users.end() ? nullptr : &*user;
}

template <typename Members>
void describe(Members& members, User& user) {
    members("name", user.name);
    members("passwordHash", user.passwordHash);
    members("sshKeys", user.sshKeys);
    if constexpr (Members::isReading) members.require(isUserName(user.name), "name: is missing or no name for a user");
}

void fromJson(const json::Node& node, State& state) { Reader::read(node, state.users); }
void toJson(json::Text& out, State& state) { Writer::write(out, state.users); }

auto& memory = Memory<State>::make("users");

/// The hash of `password` with the salt that `setting`, a salt or another hash, starts with; a text that is
/// no hash of anything if either is unusable.
std::string hash(const std::string& password, const char* setting) {
    const auto workspace = std::make_unique<crypt_data>();
    return crypt_r(password.c_str(), setting, workspace.get());
}

/// A hash with a new salt; empty if the password is refused.
std::string newHash(const std::string& password) {
    if (password.empty() || password.size() >= CRYPT_MAX_PASSPHRASE_SIZE) return {};
    char salt[CRYPT_GENSALT_OUTPUT_SIZE];
    if (crypt_gensalt_rn(nullptr, 0, nullptr, 0, salt, sizeof salt) == nullptr) {
        throw std::runtime_error{"no salt for the password"};
    }
    return hash(password, salt);
}

bool isSshKey(const std::string& key) {
    std::istringstream words{key};
    std::string type;
    std::string data;
    words >> type >> data;
    return (type.starts_with("ssh-") || type.starts_with("ecdsa-") || type.starts_with("sk-")) &&
           consistsOf(data, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=");
}

}  // namespace

// NOLINTBEGIN(performance-unnecessary-value-param): these prototypes are the platform's

std::int32_t addUser(std::string name, std::string password) {
    if (!isUserName(name)) return refused;
    const std::string passwordHash = newHash(password);
    if (passwordHash.empty()) return refused;
    return memory.change([&](State& state) {
        if (find(state, name) != nullptr) return alreadyExists;
        state.users.push_back({name, passwordHash});
        return 0;
    });
}

std::int32_t deleteUser(std::string name) {
    if (name == administrator) return notPermitted;
    return memory.change([&](State& state) {
        const auto isUser = [&](const User& user) { return user.name == name; };
        return std::erase_if(state.users, isUser) == 0 ? notFound : 0;
    });
}

std::int32_t sshKeyAdd(std::string name, std::string key) {
    if (!isSshKey(key)) return refused;
    return memory.change([&](State& state) {
        User* user = find(state, name);
        if (user == nullptr) return notFound;
        auto& keys = user->sshKeys;
        if (std::find(keys.begin(), keys.end(), key) != keys.end()) return alreadyExists;
        keys.push_back(key);
        return 0;
    });
}

std::int32_t sshKeyDel(std::string name) {
    return memory.change([&](State& state) {
        User* user = find(state, name);
        if (user == nullptr || user->sshKeys.empty()) return notFound;
        user->sshKeys.clear();
        return 0;
    });
}

bool changePasswd(loginType, std::string name, std::string newPassword) {
    const std::string passwordHash = newHash(newPassword);
    if (passwordHash.empty()) return false;
    return memory.change([&](State& state) {
        User* user = find(state, name);
        if (user != nullptr) user->passwordHash = passwordHash;
        return user != nullptr;
    });
}

bool login(loginType, std::string name, std::string password) {
    // Hashing takes long, so it runs on a copy, and other threads can go on.
    const std::string expected = memory.read([&](const State& state) {
        const User* user = find(state, name);
        return user == nullptr ? std::string{} : user->passwordHash;
    });
    return !expected.empty() && hash(password, expected.c_str()) == expected;
}

// NOLINTEND(performance-unnecessary-value-param)

std::vector<std::string> listUsers() {
    return memory.read([](const State& state) {
        std::vector<std::string> names;
        for (const User& user : state.users) names.push_back(user.name);
        return names;
    });
}

}  // namespace talvern::userManagerUtils::simulated
