#pragma once

#include <string>

// What the appliance accepts as a name or an address.

bool isHostName(const std::string& name);

/// An address of version 4 or 6, without a prefix length.
bool isIpAddress(const std::string& address);

/// Six octets such as "02:00:5e:10:00:01", not of a group.
bool isHardwareAddress(const std::string& address);
