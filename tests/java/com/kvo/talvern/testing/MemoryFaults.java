package com.kvo.talvern.testing;

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
    public static String race() throws InterruptedException {
        Runnable count = () -> {
            for (int i = 0; i < 100_000; i++) {
                countsUnguarded();
            }
        };
        Thread other = new Thread(count);
        other.start();
        count.run();
        other.join();
        return "";
    }
}
