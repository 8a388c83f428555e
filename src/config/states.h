#pragma once

#include <jni.h>

#include <cstdint>
#include <stdexcept>

#include "bridge/javaMembers.h"
#include "platform/configService.h"

// States and return codes of the configuration service. They reach Java by name and come from Java by number.
// A lookup that fails throws PendingJavaException. Results are local references.

namespace talvern::bridge {

/// The constants of a Java enum by the names that the platform gives them, from one lookup.
template <Literal Class>
class JavaConstants {
  public:
    JavaConstants(JNIEnv* env, const char* const* names)
        : env_{env}, names_{names}, valueOf_{env, findClass(env, Class.text)} {}

    /// The constant; null if Java has none of this name, with its IllegalArgumentException pending.
    /// @throws std::runtime_error  the platform's table has no name there
    template <typename NativeEnum>
    [[nodiscard]] jobject of(NativeEnum value) const {
        const char* name = names_[static_cast<std::int32_t>(value)];
        if (name == nullptr) throw std::runtime_error{"null name in the platform's table"};
        return valueOf_(notNull(env_->NewStringUTF(name)));
    }

  private:
    JNIEnv* env_;
    const char* const* names_;
    StaticMethod<"valueOf", Literal{"(Ljava/lang/String;)L"} + Class + Literal{";"}> valueOf_;
};

using JavaReturnCodes = JavaConstants<"com/kvo/talvern/config/ReturnCode">;

/// Stores the Java constant of a return code there.
void storeReturnCode(JNIEnv* env, jobject holder, jobject javaCode);

}  // namespace talvern::bridge

/// The Java constant; null if Java has none of this name, with its IllegalArgumentException pending.
JNIEXPORT jobject convertOpState(JNIEnv* env, talvern::config::Service::OpState state);

/// The same for an administrative state.
JNIEXPORT jobject convertAdminState(JNIEnv* env, talvern::config::Service::AdminState state);

/// The same for a return code.
JNIEXPORT jobject convertReturnCode(JNIEnv* env, talvern::config::Service::ReturnCode code);

/// The number that the Java constant's `getValue()` returns.
/// @throws std::invalid_argument  `state` is null
JNIEXPORT talvern::config::Service::OpState convertJOpState(JNIEnv* env, jobject state);

/// The same for an administrative state.
JNIEXPORT talvern::config::Service::AdminState convertJAdminState(JNIEnv* env, jobject state);

/// Stores `code` on the Java object that asked for the operation.
JNIEXPORT void setReturnCode(JNIEnv* env, jobject holder, talvern::config::Service::ReturnCode code);
