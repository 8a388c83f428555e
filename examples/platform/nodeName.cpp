// The start of a platform library: the operations of one namespace.
#include "platform/nodeName.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace talvern::nodeName {

std::int32_t init() { return set("talvern"); }

std::string get() {
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) {
        throw std::system_error{errno, std::system_category(), "the node name can't be read"};
    }
    return name.data();
}

std::int32_t set(const std::string& name) { return sethostname(name.data(), name.size()) == 0 ? 0 : errno; }

}  // namespace talvern::nodeName
