#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "bridge/utfStrings.h"
#include "platform/applianceUtils.h"

extern "C" {

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_TimeZoneUtils__1getConfiguredTimeZone(JNIEnv* env,
                                                                                               jobject) {
    return entryPoint(env, jstring{},
                      [&] { return toJavaString(env, talvern::applianceUtils::getTimezone()); });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_TimeZoneUtils__1setConfiguredTimeZone(JNIEnv* env, jobject, jstring name) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        return toJavaBoolean(talvern::applianceUtils::setTimezone(utf.take(name)));
    });
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_TimeZoneUtils__1getTimeZones(JNIEnv* env,
                                                                                           jobject) {
    return entryPoint(env, jobjectArray{},
                      [&] { return toJavaStringArray(env, talvern::applianceUtils::getTimezones()); });
}
}
