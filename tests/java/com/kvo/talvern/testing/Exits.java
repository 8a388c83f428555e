package com.kvo.talvern.testing;

import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.io.File;
import java.util.Random;
import java.util.concurrent.locks.LockSupport;

/** Ends the JVM, in the way that is given, at any moment of an upgrade that goes on reporting. */
public final class Exits {
    private static final Random RANDOM = new Random();

    private Exits() {}

    public static void main(String[] arguments) throws Exception {
        new FirmwareManagerUtils().upgradeFirmware("image", false, false, (done, total, code) -> pauseUpTo(100));
        pauseUpTo(400);
        switch (arguments[0]) {
            case "exit":
                System.exit(0);
                break;
            case "halt":
                Runtime.getRuntime().halt(0);
                break;
            case "SIGTERM":
                new ProcessBuilder("kill", new File("/proc/self").getCanonicalFile().getName()).start();
                Thread.sleep(60_000);
                break;
            default: // return
        }
    }

    private static void pauseUpTo(int milliseconds) {
        LockSupport.parkNanos(RANDOM.nextInt(milliseconds) * 1_000_000L);
    }
}
