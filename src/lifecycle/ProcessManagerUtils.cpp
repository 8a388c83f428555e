#include "platform/processManagerUtils.h"

#include "bridge/passOn.h"

namespace talvern::bridge {

using processManagerUtils::PlatformLogLevel;

extern "C" {

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1getPlatformTraceMask(JNIEnv* env, jobject) {
    return passOn(env, jint{0}, processManagerUtils::getPlatformTraceMask);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1getPlatformLogLevel(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] {
        const JavaEnum<"com/kvo/talvern/processmanager/ProcessManagerUtils$PlatformLogLevel"> levels{env};
        PlatformLogLevel level{};
        if (processManagerUtils::getPlatformLogLevel(level) != 0) {
            // A bare text, so that Java sees the exception of unknown kind.
            throw "system call failed, please check the trace log for details";
        }
        return env->GetObjectArrayElement(levels.constants(), static_cast<jint>(level));
    });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1setPlatformLogLevel(JNIEnv* env, jobject, jint level) {
    return passOn(env, jboolean{JNI_FALSE}, processManagerUtils::setPlatformLogLevel, level);
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1distributeLogging(
    JNIEnv* env, jobject, jint traceMask, jint level) {
    passOn(env, processManagerUtils::distributeLogging, traceMask, level);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1requestReboot(JNIEnv* env, jobject) {
    return passOn(env, jint{4}, processManagerUtils::requestReboot);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1requestShutdown(JNIEnv* env, jobject) {
    return passOn(env, jint{4}, processManagerUtils::requestShutdown);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1signalProcessIsUnhealthy(
    JNIEnv* env, jobject, jstring process) {
    return passOn(env, jboolean{JNI_FALSE}, processManagerUtils::signalApplicationIsUnhealthy, process);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1signalProcessIsReady(JNIEnv* env, jobject, jstring process) {
    return passOn(env, jboolean{JNI_FALSE}, processManagerUtils::signalIAmReady, process, false);
}
}

}  // namespace talvern::bridge
