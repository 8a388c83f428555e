#include "bridge/passOn.h"
#include "platform/timeServers.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_NTPUtils__1getTimeServers(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, timeServers::getTimeServers, nullptr);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_NTPUtils__1setTimeServers(JNIEnv* env, jobject, jobjectArray servers) {
    return passOn(env, jboolean{JNI_FALSE}, timeServers::setTimeServers, servers, nullptr);
}
}

}  // namespace talvern::bridge
