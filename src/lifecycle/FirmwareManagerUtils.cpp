#include "platform/firmwareManagerUtils.h"

#include <unistd.h>

#include "bridge/passOn.h"
#include "lifecycle/FwUpgradeProgressCallback.h"

namespace talvern::bridge {

namespace {

/// Sleeps for the whole time, also when signals wake the thread.
void sleepFully(unsigned seconds) {
    while (seconds > 0) seconds = sleep(seconds);
}

}  // namespace

extern "C" {

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_firmwaremanager_FirmwareManagerUtils__1isReleaseKeyed(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, firmwareManagerUtils::isReleaseKeyed);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_firmwaremanager_FirmwareManagerUtils__1rollbackFirmware(JNIEnv* env, jobject) {
    return entryPoint(env, jint{0}, [] { return firmwareManagerUtils::rollback() != 0 ? jint{1} : jint{0}; });
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_firmwaremanager_FirmwareManagerUtils__1deletePreviousFirmware(JNIEnv* env, jobject) {
    return passOn(env, jint{0}, firmwareManagerUtils::deletePrevious);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_firmwaremanager_FirmwareManagerUtils__1reflashFirmware(JNIEnv* env, jobject, jstring image) {
    return passOn(env, jint{-1}, firmwareManagerUtils::reflash, image);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_firmwaremanager_FirmwareManagerUtils__1upgradeFirmware(
    JNIEnv* env, jobject, jstring image, jboolean force, jboolean keepPrevious, jobject callback) {
    return entryPoint(env, jint{-1}, [&] {
        UtfStrings utf{env};
        const std::string name = utf.take(image);
        auto* progress = callback == nullptr ? registeredCallback() : registerCallback(env, callback);
        const jint result =
            firmwareManagerUtils::upgrade(name, force != JNI_FALSE, keepPrevious != JNI_FALSE, progress);
        utf.release();
        sleepFully(3);  // the upgrade's last reports may still be on their way
        return result;
    });
}
}

}  // namespace talvern::bridge
