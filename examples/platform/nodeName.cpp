#include "platform/nodeName.h"

#include <array>
#include <cerrno>
#include <mutex>
#include <system_error>
#include <unistd.h>

namespace talvern::nodeName {

namespace {

// Operations are called from any thread.
std::mutex mutex;
std::string given;

}  // namespace

std::int32_t init() { return set(""); }

std::string get() {
    const std::lock_guard lock{mutex};
    if (!given.empty()) return given;
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) {
        throw std::system_error{errno, std::system_category(), "the node name can't be read"};
    }
    return name.data();
}

// An appliance would call sethostname here; this library leaves the machine that it runs on as it is.
std::int32_t set(const std::string& name) {
    const std::lock_guard lock{mutex};
    given = name;
    return 0;
}

}  // namespace talvern::nodeName
