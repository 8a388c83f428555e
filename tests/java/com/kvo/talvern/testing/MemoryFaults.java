package com.kvo.talvern.testing;

/** Native methods whose faults only a sanitizer sees. */
public class MemoryFaults {
    native void _losesMemory();

    native void _writesBeyond();

    native void _overflows();

    native void _countsUnguarded();

    /** Lets two threads count at once. */
    public static String race() throws InterruptedException {
        Planted.load();
        MemoryFaults faults = new MemoryFaults();
        Runnable count = () -> {
            for (int i = 0; i < 100_000; i++) {
                faults._countsUnguarded();
            }
        };
        Thread other = new Thread(count);
        other.start();
        count.run();
        other.join();
        return "";
    }
}
