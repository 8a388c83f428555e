#include "addresses.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>

bool isHostName(const std::string& name) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.';
    };
    return !name.empty() && name.size() <= 253 && name.front() != '-' && name.back() != '-' &&
           std::all_of(name.begin(), name.end(), isAllowed);
}

bool isIpAddress(const std::string& address) {
    in6_addr parsed{};  // large enough for both
    return inet_pton(AF_INET, address.c_str(), &parsed) == 1 || inet_pton(AF_INET6, address.c_str(), &parsed) == 1;
}

bool isHardwareAddress(const std::string& address) {
    if (address.size() != 17) return false;
    for (std::size_t i = 0; i < address.size(); ++i) {
        const char c = address[i];
        if (i % 3 == 2 ? c != ':' : std::isxdigit(static_cast<unsigned char>(c)) == 0) return false;
    }
    return (std::stoi(address.substr(0, 2), nullptr, 16) & 1) == 0;
}
