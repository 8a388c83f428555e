#include "platform/nodeName.h"

#include "bridge/passOn.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_NodeName__1initNodeName(JNIEnv* env, jobject) {
    return passOn(env, jint{-1}, nodeName::init);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_NodeName__1getNodeName(JNIEnv* env, jobject) {
    return passOn(env, jstring{}, nodeName::get);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_NodeName__1setNodeName(JNIEnv* env, jobject, jstring name) {
    return passOn(env, jboolean{JNI_FALSE}, nodeName::set, name);
}
}

}  // namespace talvern::bridge
