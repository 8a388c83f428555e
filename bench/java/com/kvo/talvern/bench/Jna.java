package com.kvo.talvern.bench;

import com.sun.jna.Native;
import com.sun.jna.NativeLibrary;

/** Plain C functions around the platform, called without native methods of their own. */
final class Jna {
    static {
        Native.register(NativeLibrary.getInstance(System.getProperty("talvern.bench.floor")));
    }

    private Jna() {}

    static native int talvern_getCPUCount();

    static native String talvern_getNodeName();

    static native int talvern_setNodeName(String name);
}
