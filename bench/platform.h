#pragma once

#include <cstddef>
#include <string>

/// The platform of the benchmarks: the operations that are measured, with data made beforehand, so that their
/// own work is as small as it can be. All others come from the simulated appliance and are never called.
namespace bench {

/// Makes the data that is handed out: lists with `size` elements, trees with about `size` values. Not while
/// an operation runs.
void setSize(std::size_t size);

/// Makes ready what the next `count` calls for a list of texts will hand out, so that no copy of it is made
/// while they are measured. Not while an operation runs.
void makeLists(std::size_t count);

/// From now on what the platform is given is kept as text, for `received`, which is empty at first. Costs
/// time: not while measuring.
void setRecording(bool isRecording);

/// What the platform was given last.
std::string received();

}  // namespace bench
