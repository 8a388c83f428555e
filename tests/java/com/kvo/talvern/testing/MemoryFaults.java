package com.kvo.talvern.testing;

import java.util.concurrent.CompletableFuture;

/** Native methods whose faults only a sanitizer sees. */
public final class MemoryFaults {
    static {
        System.load(System.getProperty("talvern.planted.library"));
    }

    private MemoryFaults() {}

    static native void losesMemory();

    static native void writesBeyond();

    static native void overflows();

    static native void countsUnguarded();

    /** Lets two threads count at once. */
    public static String race() {
        Runnable count = () -> {
            for (int i = 0; i < 100_000; i++) {
                countsUnguarded();
            }
        };
        CompletableFuture<Void> other = CompletableFuture.runAsync(count);
        count.run();
        other.join();
        return "";
    }
}
