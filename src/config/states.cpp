#include "config/states.h"

#include <stdexcept>

#include "bridge/javaMembers.h"

using talvern::config::Service;

namespace {

/// The constant of the Java enum that the name table gives for `value`.
template <Literal Class, typename NativeEnum>
jobject constantByName(JNIEnv* env, const char* const* names, NativeEnum value) {
    const StaticMethod<"valueOf", Literal{"(Ljava/lang/String;)L"} + Class + Literal{";"}> valueOf{
        env, findClass(env, Class.text)};
    return valueOf(notNull(env->NewStringUTF(names[static_cast<std::int32_t>(value)])));
}

jint numberOf(JNIEnv* env, jobject state) {
    if (state == nullptr) throw std::invalid_argument{"null state argument"};
    return call<"getValue", "()I">(env, state);
}

}  // namespace

jobject convertOpState(JNIEnv* env, Service::OpState state) {
    return constantByName<"com/kvo/talvern/config/OpState">(env, talvern::config::OPSTATE_STR, state);
}

jobject convertAdminState(JNIEnv* env, Service::AdminState state) {
    return constantByName<"com/kvo/talvern/config/AdminState">(env, talvern::config::ADMINSTATE_STR, state);
}

jobject convertReturnCode(JNIEnv* env, Service::ReturnCode code) {
    return constantByName<"com/kvo/talvern/config/ReturnCode">(env, talvern::config::RETURNCODE_STR, code);
}

Service::OpState convertJOpState(JNIEnv* env, jobject state) {
    return static_cast<Service::OpState>(numberOf(env, state));
}

Service::AdminState convertJAdminState(JNIEnv* env, jobject state) {
    return static_cast<Service::AdminState>(numberOf(env, state));
}

void setReturnCode(JNIEnv* env, jobject holder, Service::ReturnCode code) {
    storeReturnCode(env, holder, convertReturnCode(env, code));
}

void storeReturnCode(JNIEnv* env, jobject holder, jobject javaCode) {
    call<"setReturnCode", "(Lcom/kvo/talvern/config/ReturnCode;)V">(env, holder, javaCode);
}
