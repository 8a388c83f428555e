#include "platform/servicesUtils.h"

#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/utfStrings.h"

extern "C" {

JNIEXPORT jint JNICALL Java_com_kvo_talvern_services_ServicesUtils__1startTest(JNIEnv* env, jobject,
                                                                               jstring name, jint interval) {
    return entryPoint(env, jint{0}, [&] {
        UtfStrings utf{env};
        return talvern::servicesUtils::startTest(utf.take(name), interval);
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_services_ServicesUtils__1stopTest(JNIEnv* env, jobject,
                                                                              jstring name) {
    return entryPoint(env, jint{0}, [&] {
        UtfStrings utf{env};
        return talvern::servicesUtils::stopTest(utf.take(name));
    });
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_services_ServicesUtils__1performTest(JNIEnv* env, jobject,
                                                                                 jstring name, jint count) {
    entryPoint(env, [&] {
        UtfStrings utf{env};
        talvern::servicesUtils::performTest(utf.take(name), count);
    });
}
}
