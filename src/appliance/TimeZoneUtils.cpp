#include "bridge/passOn.h"
#include "platform/applianceUtils.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_TimeZoneUtils__1getConfiguredTimeZone(JNIEnv* env, jobject) {
    return passOn(env, jstring{}, applianceUtils::getTimezone);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_TimeZoneUtils__1setConfiguredTimeZone(JNIEnv* env, jobject, jstring name) {
    return passOn(env, jboolean{JNI_FALSE}, applianceUtils::setTimezone, name);
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_TimeZoneUtils__1getTimeZones(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, applianceUtils::getTimezones);
}
}

}  // namespace talvern::bridge
