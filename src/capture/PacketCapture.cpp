#include "platform/packetCapture.h"

#include "bridge/passOn.h"

namespace talvern::bridge {

namespace {

using JavaInterfaceStates = JavaEnum<"com/kvo/talvern/appliance/PacketCapture$kwInterfaceState">;
using JavaVectors = JavaLists<"java/util/Vector">;

jobject toJavaCaptureInfo(JNIEnv* env, const packetCapture::CaptureInfo& info) {
    const Constructor<
        "(Ljava/lang/String;Lcom/kvo/talvern/appliance/PacketCapture$kwInterfaceState;"
        "Ljava/util/Vector;)V">
        create{env, findClass(env, "com/kvo/talvern/appliance/CaptureInfo")};
    const JavaVectors vectors{env};
    const JavaInterfaceStates states{env};
    jstring interfaceName = toJavaString(env, info.interfaceName);
    jobject state = notNull(env->GetObjectArrayElement(states.constants(), info.state));
    return create(interfaceName, state, vectors.of(info.files));
}

}  // namespace

extern "C" {

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_appliance_PacketCapture__1startPacketCapture(
    JNIEnv* env, jobject, jstring interfaceName, jstring fileName, jstring filter, jint snapLength, jint maxBytes,
    jint maxSeconds, jint maxPackets) {
    return entryPoint(env, jobject{}, [&] {
        jobjectArray states = JavaInterfaceStates{env}.constants();
        jobject rejection = env->GetObjectArrayElement(states, packetCapture::invalidArguments);
        UtfStrings utf{env};
        const char* nativeInterfaceName = utf.take(interfaceName);
        const char* nativeFileName = utf.take(fileName);
        const char* nativeFilter = utf.take(filter);
        if (maxBytes < 0 || maxSeconds < 0 || maxPackets < 0) return rejection;
        const auto state = packetCapture::sStartPacketCapture(
            nativeInterfaceName, nativeFileName, nativeFilter, static_cast<unsigned>(snapLength),
            static_cast<unsigned>(maxBytes), static_cast<unsigned>(maxSeconds), static_cast<unsigned>(maxPackets),
            false);
        return env->GetObjectArrayElement(states, state);
    });
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_PacketCapture__1stopPacketCapture(JNIEnv* env, jobject, jstring interfaceName) {
    return passOn(env, jint{0}, packetCapture::sStopPacketCapture, interfaceName);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_PacketCapture__1removeCapture(JNIEnv* env, jobject, jstring interfaceName) {
    return passOn(env, jint{0}, packetCapture::sRemoveCapture, interfaceName);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_PacketCapture__1getAllCapturedInterfaces(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] {
        const auto interfaces = packetCapture::sGetAllCapturedInterfaces();
        return JavaVectors{env}.of(interfaces);
    });
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_appliance_PacketCapture__1getCaptureInfo(JNIEnv* env, jobject, jstring interfaceName) {
    return entryPoint(env, jobject{}, [&] {
        UtfStrings utf{env};
        return toJavaCaptureInfo(env, packetCapture::sGetCaptureInfo(utf.take(interfaceName)));
    });
}
}

}  // namespace talvern::bridge
