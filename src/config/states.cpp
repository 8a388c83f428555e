#include "config/states.h"

#include <stdexcept>

#include "bridge/javaMembers.h"

namespace talvern::bridge {

namespace {

jint numberOf(JNIEnv* env, jobject state) {
    if (state == nullptr) throw std::invalid_argument{"null state argument"};
    return call<"getValue", "()I">(env, state);
}

}  // namespace

void storeReturnCode(JNIEnv* env, jobject holder, jobject javaCode) {
    call<"setReturnCode", "(Lcom/kvo/talvern/config/ReturnCode;)V">(env, holder, javaCode);
}

}  // namespace talvern::bridge

using namespace talvern::bridge;
using talvern::config::Service;

jobject convertOpState(JNIEnv* env, Service::OpState state) {
    return JavaConstants<"com/kvo/talvern/config/OpState">{env, talvern::config::OPSTATE_STR}.of(state);
}

jobject convertAdminState(JNIEnv* env, Service::AdminState state) {
    return JavaConstants<"com/kvo/talvern/config/AdminState">{env, talvern::config::ADMINSTATE_STR}.of(state);
}

jobject convertReturnCode(JNIEnv* env, Service::ReturnCode code) {
    return JavaReturnCodes{env, talvern::config::RETURNCODE_STR}.of(code);
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
