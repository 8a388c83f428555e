#include "platform/snmpUtils.h"

#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"

extern "C" {

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1startSNMP(JNIEnv* env, jobject) {
    return entryPoint(env, jboolean{JNI_FALSE},
                      [] { return toJavaBoolean(talvern::snmpUtils::startSNMP()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1stopSNMP(JNIEnv* env, jobject) {
    return entryPoint(env, jboolean{JNI_FALSE}, [] { return toJavaBoolean(talvern::snmpUtils::stopSNMP()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_SNMPUtils__1restartSNMP(JNIEnv* env, jobject) {
    return entryPoint(env, jboolean{JNI_FALSE},
                      [] { return toJavaBoolean(talvern::snmpUtils::restartSNMP()); });
}
}
