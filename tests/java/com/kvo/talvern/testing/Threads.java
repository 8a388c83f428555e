package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.NodeName;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.CountDownLatch;

/** Many threads at work at once. */
public final class Threads {
    private static final int THREADS = 64;
    private static final int ROUNDS = 20;

    private Threads() {}

    /** Runs mixed calls on all threads at once; what went wrong, or empty. */
    public static String mixedCalls() throws InterruptedException {
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        CountDownLatch start = new CountDownLatch(1);
        Thread[] threads = new Thread[THREADS];
        for (int i = 0; i < THREADS; i++) {
            String own = "thread-" + i;
            threads[i] = new Thread(() -> {
                try {
                    start.await();
                    for (int round = 0; round < ROUNDS; round++) {
                        names(own);
                    }
                } catch (Exception | AssertionError e) {
                    faults.add(own + ": " + e);
                }
            });
            threads[i].start();
        }
        start.countDown();
        for (Thread thread : threads) {
            thread.join();
        }
        return String.join("\n", faults);
    }

    private static void names(String own) {
        NodeName nodeName = new NodeName();
        check(nodeName.setNodeName(own), "the name is refused");
        check(nodeName.getNodeName().startsWith("thread-"), "somebody else's name");
    }

    private static void check(boolean holds, String otherwise) {
        if (!holds) {
            throw new AssertionError(otherwise);
        }
    }
}
