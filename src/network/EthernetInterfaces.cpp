#include "platform/ethernetInterfaces.h"

#include <memory>

#include "bridge/passOn.h"
#include "network/keyValPair.h"

namespace talvern::bridge {

using types::InterfaceStatus;
using types::KeyValPair;

namespace {

/// What the changing methods return where the platform could not be asked, or threw.
constexpr jint interfaceFailure = 112;

/// The status that `read` gives of the interface, as a Java object; null if it gives none.
jobject getStatus(JNIEnv* env, jstring name, InterfaceStatus* (*read)(std::string)) {
    return entryPoint(env, jobject{}, [&]() -> jobject {
        const JavaHashMaps maps{env};
        const Constructor<"(Ljava/lang/String;ZZ[Ljava/util/Map;)V"> create{
            env, findClass(env, "com/kvo/talvern/appliance/EthernetInterfaceStatus")};
        const InterfaceStatus* status = read(toNativeString(env, name));
        if (status == nullptr) return nullptr;
        const auto& records = status->details;
        jobjectArray details =
            records.empty() ? nullptr : toJavaHashMapArray(env, records, maps, "details of an interface");
        return create(name, status->isEnabled, status->isUp, details);
    });
}

}  // namespace

extern "C" {

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getInterfaceNames(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] {
        const std::unique_ptr<const std::vector<std::string>> names{ethernetInterfaces::getInterfaceNames()};
        return names == nullptr ? toJavaStringArray(env, {}) : toJavaStringArray(env, *names);
    });
}

JNIEXPORT jobjectArray JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getEthernetInterfaces(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] {
        std::vector<KeyValPair*> interfaces;
        const bool wereRead = ethernetInterfaces::getInterfaces(interfaces);
        return wereRead ? toJavaHashMapArray(env, interfaces, JavaHashMaps{env}, "interfaces") : nullptr;
    });
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getEthernetInterface(JNIEnv* env, jobject, jstring name) {
    return entryPoint(env, jobject{}, [&]() -> jobject {
        const std::string nativeName = toNativeString(env, name);
        const JavaHashMaps maps{env};
        jobject map = maps.create();
        const KeyValPair* attributes = ethernetInterfaces::getInterface(nativeName);
        if (attributes == nullptr) return nullptr;
        putAll(env, *attributes, maps, map);
        return map;
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_EthernetInterfaces__1setEthernetInterface(
    JNIEnv* env, jobject, jobjectArray keys, jobjectArray values) {
    return entryPoint(env, interfaceFailure, [&] {
        KeyValPair attributes;
        const bool isComplete = toKeyValPair(env, keys, values, attributes);
        return isComplete ? ethernetInterfaces::setInterface(attributes) : interfaceFailure;
    });
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1clearEthernetInterface(JNIEnv* env, jobject, jstring name) {
    return passOn(env, interfaceFailure, ethernetInterfaces::clearInterface, name);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getEthernetInterfaceStatus(JNIEnv* env, jobject, jstring name) {
    return getStatus(env, name, ethernetInterfaces::getInterfaceStatus);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getAggregateStatus(JNIEnv* env, jobject, jstring name) {
    return getStatus(env, name, ethernetInterfaces::getAggregateStatus);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1getVLANStatus(JNIEnv* env, jobject, jstring name) {
    return getStatus(env, name, ethernetInterfaces::getVLANStatus);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_EthernetInterfaces__1addVIPToInterface(
    JNIEnv* env, jobject, jstring first, jstring second) {
    return passOn(env, interfaceFailure, ethernetInterfaces::addVIPToInterface, first, second);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_EthernetInterfaces__1removeVIPFromInterface(
    JNIEnv* env, jobject, jstring first, jstring second) {
    return passOn(env, interfaceFailure, ethernetInterfaces::removeVIPFromInterface, first, second);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_EthernetInterfaces__1setHWAddressImmediate(
    JNIEnv* env, jobject, jstring first, jstring second) {
    return passOn(env, interfaceFailure, ethernetInterfaces::setHWAddressImmediate, first, second);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1addVIPToLoopback(JNIEnv* env, jobject, jstring address) {
    return passOn(env, interfaceFailure, ethernetInterfaces::addVIPToLoopback, address);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1removeVIPFromLoopback(JNIEnv* env, jobject, jstring address) {
    return passOn(env, interfaceFailure, ethernetInterfaces::removeVIPFromLoopback, address);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_EthernetInterfaces__1resetHWAddressImmediate(JNIEnv* env, jobject, jstring name) {
    return passOn(env, interfaceFailure, ethernetInterfaces::resetHWAddressImmediate, name);
}
}

}  // namespace talvern::bridge
