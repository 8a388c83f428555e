#pragma once

#include <jni.h>

#include "platform/firmwareManagerUtils.h"

/// Passes what the platform reports of an upgrade on to the Java callback that was registered last. A report
/// is dropped if there is none or if Java cannot be reached. What the Java callback throws stays pending on
/// the thread; the first exception does, if it throws at several reports.
class JNIEXPORT FwUpgradeProgressCallback : public talvern::firmwareManagerUtils::UpgradeCallback {
  public:
    void progress(int done, int total, FwUpgradeCode code) override;
};

// All that outlives a call: what a firmware upgrade needs to report its progress to Java. Null until the
// first upgrade with a callback, then kept until the process ends. Used under the mutex of this file's source
// alone.

/// The virtual machine, through which a thread of the platform reaches Java.
JNIEXPORT extern JavaVM* g_vm;

/// Global reference to the Java callback that was registered last.
JNIEXPORT extern jobject sJCallback;

/// The native callback that the platform reports to; never deleted.
JNIEXPORT extern FwUpgradeProgressCallback* sFwCallback;

namespace talvern::bridge {

/// Makes `callback` the one that all reports go to from now on, also those of earlier upgrades. Keeps a
/// global reference to it and lets go of the one before. Returns what the platform is to report to; null if
/// the JVM gave no access to itself.
/// @throws PendingJavaException  the JVM has no memory for the reference; no callback is registered then
firmwareManagerUtils::UpgradeCallback* registerCallback(JNIEnv* env, jobject callback);

/// What the platform is to report to when no new callback is given; null before the first one.
firmwareManagerUtils::UpgradeCallback* registeredCallback();

}  // namespace talvern::bridge
