#include "platform/nodeName.h"

#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "bridge/utfStrings.h"

extern "C" {

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_NodeName__1initNodeName(JNIEnv* env, jobject) {
    return entryPoint(env, jint{-1}, [] { return talvern::nodeName::init(); });
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_NodeName__1getNodeName(JNIEnv* env, jobject) {
    return entryPoint(env, jstring{}, [&] { return toJavaString(env, talvern::nodeName::get()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_NodeName__1setNodeName(JNIEnv* env, jobject,
                                                                                 jstring name) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        return isSuccess(talvern::nodeName::set(utf.take(name)));
    });
}
}
