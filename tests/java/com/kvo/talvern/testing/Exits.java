package com.kvo.talvern.testing;

import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.io.File;
import java.util.Random;

/** Ends the JVM, in the way that is given, at any moment of an upgrade that goes on reporting. */
public final class Exits {
    private Exits() {}

    public static void main(String[] arguments) throws Exception {
        Random random = new Random();
        new FirmwareManagerUtils().upgradeFirmware("image", false, false, (done, total, code) -> {
            pause(random.nextInt(100));
        });
        pause(random.nextInt(400));
        switch (arguments[0]) {
            case "return":
                return;
            case "exit":
                System.exit(0);
                return;
            case "halt":
                Runtime.getRuntime().halt(0);
                return;
            case "SIGTERM":
                new ProcessBuilder("kill", new File("/proc/self").getCanonicalFile().getName()).start();
                break;
            default:
                break;
        }
        pause(60_000);
    }

    private static void pause(long milliseconds) {
        try {
            Thread.sleep(milliseconds);
        } catch (InterruptedException e) {
            throw new IllegalStateException(e);
        }
    }
}
