#pragma once

/// The appliance's trace log.
namespace talvern::log {

/// Initialises logging for this process under `name`.
/// The characters belong to the caller and are valid only during the call. May throw.
void init(const char* name);

/// Writes one line; `format` and what follows are those of printf. A lower `level` is more important:
/// the bridge writes at level 3 (a native exception was translated) and 7 (diagnostics).
/// Is called from any thread and should not throw: what it throws at level 3 is lost, at level 7 it reaches
/// Java like the exception of an operation.
[[gnu::format(printf, 2, 3)]] void trace(unsigned level, const char* format, ...);

}  // namespace talvern::log
