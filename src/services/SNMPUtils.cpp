#include "platform/snmpUtils.h"

#include "bridge/passOn.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1startSNMP(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, snmpUtils::startSNMP);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1stopSNMP(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, snmpUtils::stopSNMP);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1restartSNMP(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, snmpUtils::restartSNMP);
}
}

}  // namespace talvern::bridge
