#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace talvern::bridge {

/// Makes sure that each pointer of a list from the platform leads to a record.
/// @throws std::runtime_error  one is null; the message names the list and the index
template <typename Record>
void requireRecords(const std::vector<Record*>& records, const std::string& listName) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i] == nullptr) {
            throw std::runtime_error{"null record in the list of " + listName + " at index " + std::to_string(i)};
        }
    }
}

}  // namespace talvern::bridge
