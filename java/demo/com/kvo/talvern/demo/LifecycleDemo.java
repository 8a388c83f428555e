package com.kvo.talvern.demo;

import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import com.kvo.talvern.firmwaremanager.UpgradeCode;
import com.kvo.talvern.processmanager.ProcessManagerUtils;
import com.kvo.talvern.processmanager.ProcessManagerUtils.PlatformLogLevel;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;

/** The process manager, the log level, and a firmware upgrade that reports its progress. */
final class LifecycleDemo {
    private LifecycleDemo() {}

    static void run() {
        processManager();
        firmware();
    }

    private static void processManager() {
        Demo.title("Process manager");
        ProcessManagerUtils processManager = new ProcessManagerUtils();
        Demo.show("the log level is", processManager.getPlatformLogLevel());
        Demo.show("accepts the log level DEBUG", processManager.setPlatformLogLevel(PlatformLogLevel.DEBUG));
        Demo.show("the log level is now", processManager.getPlatformLogLevel());
        processManager.distributeLogging(0x80000001, PlatformLogLevel.WARNING.ordinal());
        Demo.show("all processes trace", String.format("%08x", processManager.getPlatformTraceMask()));
        Demo.show("the log level is now", processManager.getPlatformLogLevel());
        Demo.show("knows that we are ready", processManager.signalProcessIsReady("demo"));
        Demo.refused("a null log level", () -> processManager.setPlatformLogLevel(null));
    }

    private static void firmware() {
        Demo.title("Firmware upgrade");
        FirmwareManagerUtils firmware = new FirmwareManagerUtils();
        ProgressBar bar = new ProgressBar();
        Demo.show("the firmware is release-keyed", firmware.isReleaseKeyed());
        Demo.show("reflashing an unknown image gives", firmware.reflashFirmware("unknown.img"));
        int status = firmware.upgradeFirmware("talvern-2.2-beta.img", true, true, bar);
        bar.awaitEnd();
        Demo.show("the upgrade gives", status);
        Demo.show("the firmware is release-keyed", firmware.isReleaseKeyed());
        Demo.show("the rollback gives", firmware.rollbackFirmware());
        Demo.show("the firmware is release-keyed", firmware.isReleaseKeyed());
    }

    /** Draws the progress of an upgrade in one line. */
    private static final class ProgressBar implements FirmwareManagerUtils.UpgradeCallback {
        private static final int WIDTH = 40;

        private final CountDownLatch end = new CountDownLatch(1);

        @Override
        public void progress(int done, int total, UpgradeCode code) {
            StringBuilder bar = new StringBuilder();
            for (int i = 0; i < WIDTH; i++) {
                bar.append(i * total < done * WIDTH ? '#' : '.');
            }
            System.out.printf("\r  [%s] %3d %% %-9s", bar, done * 100 / total, code);
            if (code.isLast()) {
                System.out.println();
                end.countDown();
            }
        }

        void awaitEnd() {
            try {
                if (!end.await(30, TimeUnit.SECONDS)) {
                    throw new AssertionError("the upgrade does not end");
                }
            } catch (InterruptedException e) {
                throw new AssertionError(e);
            }
        }
    }
}
