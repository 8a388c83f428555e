#pragma once

#include <jni.h>

class FwUpgradeProgressCallback;

// All that outlives a call: what a firmware upgrade needs to report its progress to Java. Null until the
// first upgrade with a callback, then kept until the process ends. Only
// lifecycle/FwUpgradeProgressCallback.cpp uses them, under its mutex.

/// The virtual machine, through which a thread of the platform reaches Java.
JNIEXPORT extern JavaVM* g_vm;

/// Global reference to the Java callback that was registered last.
JNIEXPORT extern jobject sJCallback;

/// The native callback that the platform reports to; never deleted.
JNIEXPORT extern FwUpgradeProgressCallback* sFwCallback;
