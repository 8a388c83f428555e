#pragma once

#include <span>

/// The names of all operations, such as "nodeName::set".
std::span<const char* const> operationNames();

/// Does what the faults say of the next call of this operation: waits, throws. Whether the call has to fail
/// without being performed.
bool strike(const char* operation);
