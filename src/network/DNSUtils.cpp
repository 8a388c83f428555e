#include "bridge/passOn.h"
#include "platform/nameServers.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1getNameServers(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, nameServers::getNameServers, nullptr);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_DNSUtils__1setNameServers(JNIEnv* env, jobject, jobjectArray servers) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const auto list = toNativeStringList(env, servers);
        // Java knows nothing of the companion list: without this it would be lost with every change.
        std::vector<std::string> companions;
        nameServers::getNameServers(&companions);
        return isSuccess(nameServers::setNameServers(list, &companions));
    });
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_DNSUtils__1getSearchDomains(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, nameServers::getSearchDomains);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_DNSUtils__1setSearchDomains(JNIEnv* env, jobject, jobjectArray domains) {
    return passOn(env, jboolean{JNI_FALSE}, nameServers::setSearchDomains, domains);
}
}

}  // namespace talvern::bridge
