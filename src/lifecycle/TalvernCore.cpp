#include "bridge/passOn.h"
#include "platform/log.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT void JNICALL Java_com_kvo_talvern_core_TalvernCore__1initLogging(JNIEnv* env, jobject, jstring name) {
    passOn(env, log::init, name);
}
}

}  // namespace talvern::bridge
