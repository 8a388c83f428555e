#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/utfStrings.h"
#include "platform/log.h"

extern "C" {

JNIEXPORT void JNICALL Java_com_kvo_talvern_core_TalvernCore__1initLogging(JNIEnv* env, jobject,
                                                                           jstring name) {
    entryPoint(env, [&] {
        UtfStrings utf{env};
        talvern::log::init(utf.take(name));
    });
}
}
