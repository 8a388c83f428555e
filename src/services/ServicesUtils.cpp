#include "platform/servicesUtils.h"

#include "bridge/passOn.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_services_ServicesUtils__1startTest(JNIEnv* env, jobject, jstring name, jint interval) {
    return passOn(env, jint{0}, servicesUtils::startTest, name, interval);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_services_ServicesUtils__1stopTest(JNIEnv* env, jobject, jstring name) {
    return passOn(env, jint{0}, servicesUtils::stopTest, name);
}

JNIEXPORT void JNICALL
Java_com_kvo_talvern_services_ServicesUtils__1performTest(JNIEnv* env, jobject, jstring name, jint count) {
    passOn(env, servicesUtils::performTest, name, count);
}
}

}  // namespace talvern::bridge
