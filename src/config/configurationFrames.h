#pragma once

#include <jni.h>

#include "bridge/entryPoint.h"
#include "platform/messaging.h"

namespace talvern::bridge {

/// The frame of a native method that lets the configuration service check a value: a ValidationException
/// reaches Java as such.
template <typename Result, typename Body>
Result validatingEntryPoint(JNIEnv* env, Result failureValue, Body body) noexcept {
    return entryPoint(env, failureValue, [&]() -> Result {
        try {
            return body();
        } catch (const config::messaging::ValidationException& exception) {
            translate(env, exception);
        }
        return failureValue;
    });
}

/// The frame of a native method that changes the configuration: a ConfigChangeException reaches Java as
/// such, too.
template <typename Result, typename Body>
Result changingEntryPoint(JNIEnv* env, Result failureValue, Body body) noexcept {
    return validatingEntryPoint(env, failureValue, [&]() -> Result {
        try {
            return body();
        } catch (const config::messaging::ConfigChangeException& exception) {
            translate(env, exception);
        }
        return failureValue;
    });
}

}  // namespace talvern::bridge
