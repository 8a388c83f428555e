#include "platform/statusUtils.h"

#include <sys/sysinfo.h>

namespace talvern::statusUtils {

bool getMemoryUse(std::uint32_t& total, std::uint32_t& free) {
    struct sysinfo info {};
    if (sysinfo(&info) != 0) return false;
    total = static_cast<std::uint32_t>(std::uint64_t{info.totalram} * info.mem_unit / 1024);
    free = static_cast<std::uint32_t>(std::uint64_t{info.freeram} * info.mem_unit / 1024);
    return true;
}

std::int64_t getUptime() {
    struct sysinfo info {};
    sysinfo(&info);
    return info.uptime;
}

}  // namespace talvern::statusUtils
