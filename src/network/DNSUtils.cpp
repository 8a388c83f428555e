#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "platform/nameServers.h"

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1getNameServers(JNIEnv* env,
                                                                                        jobject) {
    return entryPoint(env, jobjectArray{},
                      [&] { return toJavaStringArray(env, talvern::nameServers::getNameServers(nullptr)); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1setNameServers(JNIEnv* env, jobject,
                                                                                    jobjectArray servers) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const auto list = toNativeStringList(env, servers);
        // Java knows nothing of the companion list: without this it would be lost with every change.
        std::vector<std::string> companions;
        talvern::nameServers::getNameServers(&companions);
        return isSuccess(talvern::nameServers::setNameServers(list, &companions));
    });
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1getSearchDomains(JNIEnv* env,
                                                                                          jobject) {
    return entryPoint(env, jobjectArray{},
                      [&] { return toJavaStringArray(env, talvern::nameServers::getSearchDomains()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1setSearchDomains(JNIEnv* env, jobject,
                                                                                      jobjectArray domains) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        return isSuccess(talvern::nameServers::setSearchDomains(toNativeStringList(env, domains)));
    });
}
}
