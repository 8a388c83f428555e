#include "platform/hostsUtils.h"

#include "bridge/passOn.h"
#include "platform/log.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_HostsUtils__1getAddresses(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] {
        return toJavaStringArray(env, hostsUtils::getAddresses(), [](const std::string& address) {
            log::trace(7, "Address in JNI is %s", address.c_str());
        });
    });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_HostsUtils__1getHostnames(JNIEnv* env, jobject, jstring address) {
    return passOn(env, jobjectArray{}, hostsUtils::getHostnames, address);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_HostsUtils__1setHostnames(
    JNIEnv* env, jobject, jstring address, jobjectArray hostnames) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const std::string nativeAddress = toNativeString(env, address);
        const auto list = toNativeStringList(env, hostnames);
        return toJavaBoolean(hostsUtils::setHostnames(nativeAddress, list));
    });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_HostsUtils__1deleteHostnames(JNIEnv* env, jobject, jstring address) {
    return passOn(env, jboolean{JNI_FALSE}, hostsUtils::deleteHostnames, address);
}
}

}  // namespace talvern::bridge
