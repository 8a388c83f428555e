#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// What `read` puts into an empty list; nothing if it fails, since Java is told the same of both.
template <typename Entry>
std::vector<Entry> readList(bool (*read)(std::vector<Entry>&)) {
    std::vector<Entry> list;
    if (!read(list)) list.clear();
    return list;
}

/// Makes sure that each pointer of a list from the platform leads to a record.
/// @throws std::runtime_error  one is null; the message names the list and the index
template <typename Record>
void requireRecords(const std::vector<Record*>& records, const std::string& listName) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i] == nullptr) {
            throw std::runtime_error{"null record in the list of " + listName + " at index " +
                                     std::to_string(i)};
        }
    }
}
