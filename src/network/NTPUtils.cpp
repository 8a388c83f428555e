#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "platform/timeServers.h"

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_NTPUtils__1getTimeServers(JNIEnv* env,
                                                                                        jobject) {
    return entryPoint(env, jobjectArray{},
                      [&] { return toJavaStringArray(env, talvern::timeServers::getTimeServers(nullptr)); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_NTPUtils__1setTimeServers(JNIEnv* env, jobject,
                                                                                    jobjectArray servers) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const auto list = toNativeStringList(env, servers);
        return isSuccess(talvern::timeServers::setTimeServers(list, nullptr));
    });
}
}
