#pragma once

namespace talvern::bridge {

/// Thrown when a JNI call came back without the object that the next call needs: in almost all cases the JVM
/// has raised a Java exception already, which is left pending and reaches the caller of the native method.
struct PendingJavaException {};

/// Returns `reference`, or stops the call if it is null.
/// @throws PendingJavaException  `reference` is null
template <typename Reference>
Reference notNull(Reference reference) {
    if (reference == nullptr) throw PendingJavaException{};
    return reference;
}

}  // namespace talvern::bridge
