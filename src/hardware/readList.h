#pragma once

#include <vector>

namespace talvern::bridge {

/// What `read` puts into an empty list; nothing if it fails, since Java is told the same of both.
template <typename Entry>
std::vector<Entry> readList(bool (*read)(std::vector<Entry>&)) {
    std::vector<Entry> list;
    if (!read(list)) list.clear();
    return list;
}

}  // namespace talvern::bridge
