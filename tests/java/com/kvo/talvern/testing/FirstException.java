package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.NodeName;

/** A thread's first native exception, where there is no more memory for what the C++ runtime keeps of a thread. */
public final class FirstException {
    private FirstException() {}

    private static native void useUpMemory();

    public static void main(String[] library) throws InterruptedException {
        System.load(library[0]);
        Thread thread = new Thread(() -> {
            new NodeName().getNodeName();
            useUpMemory();
            try {
                new ApplianceUtils().triggerException("the disk has failed");
            } catch (TalvernException e) {
                System.out.println(e);
            }
        });
        thread.start();
        thread.join();
    }
}
