#include "platform/processManagerUtils.h"

#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"

using talvern::processManagerUtils::PlatformLogLevel;

extern "C" {

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1getPlatformTraceMask(JNIEnv* env, jobject) {
    return entryPoint(env, jint{0},
                      [] { return static_cast<jint>(talvern::processManagerUtils::getPlatformTraceMask()); });
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1getPlatformLogLevel(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] {
        const JavaEnum<"com/kvo/talvern/processmanager/ProcessManagerUtils$PlatformLogLevel"> levels{env};
        PlatformLogLevel level{};
        if (talvern::processManagerUtils::getPlatformLogLevel(level) != 0) {
            // A bare text, so that Java sees the exception of unknown kind.
            throw "system call failed, please check the trace log for details";
        }
        return levels.constants().at(static_cast<jint>(level));
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1setPlatformLogLevel(
    JNIEnv* env, jobject, jint level) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        return isSuccess(talvern::processManagerUtils::setPlatformLogLevel(PlatformLogLevel{level}));
    });
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1distributeLogging(
    JNIEnv* env, jobject, jint traceMask, jint level) {
    entryPoint(env, [&] {
        talvern::processManagerUtils::distributeLogging(static_cast<unsigned int>(traceMask), level);
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1requestReboot(JNIEnv* env,
                                                                                               jobject) {
    return entryPoint(env, jint{4}, [] { return talvern::processManagerUtils::requestReboot(); });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1requestShutdown(JNIEnv* env,
                                                                                                 jobject) {
    return entryPoint(env, jint{4}, [] { return talvern::processManagerUtils::requestShutdown(); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1signalProcessIsUnhealthy(
    JNIEnv* env, jobject, jstring process) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const std::string name = toNativeString(env, process);
        return isSuccess(talvern::processManagerUtils::signalApplicationIsUnhealthy(name));
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_processmanager_ProcessManagerUtils__1signalProcessIsReady(
    JNIEnv* env, jobject, jstring process) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        const std::string name = toNativeString(env, process);
        return isSuccess(talvern::processManagerUtils::signalIAmReady(name, false));
    });
}
}
