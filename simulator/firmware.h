#pragma once

#include <string>
#include <vector>

/// The appliance's firmware as the inventory shows it: what runs, then what was installed in part, if
/// anything.
std::vector<std::string> installedFirmware();
