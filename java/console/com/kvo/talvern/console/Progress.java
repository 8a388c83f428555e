package com.kvo.talvern.console;

import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import com.kvo.talvern.firmwaremanager.UpgradeCode;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;

/** Shows the progress of a firmware upgrade: as a bar on a terminal, elsewhere as a line for each stage. */
final class Progress implements FirmwareManagerUtils.UpgradeCallback {
    private static final int WIDTH = 40;
    private static final int MINUTES = 5;

    private final Output output;
    private final CountDownLatch end = new CountDownLatch(1);
    private volatile long reported = System.nanoTime();
    private UpgradeCode stage;

    Progress(Output output) {
        this.output = output;
    }

    @Override
    public synchronized void progress(int done, int total, UpgradeCode code) {
        reported = System.nanoTime();
        long percent = total <= 0 ? 0 : Math.max(0, Math.min(100, 100L * done / total));
        String text = String.format("%3d %%  %-9s", percent, code.name().toLowerCase());
        if (!output.isJson() && Terminal.isOutput()) {
            int width = Math.min(WIDTH, Terminal.width(WIDTH) - text.length() - 5);
            int filled = (int) (Math.max(0, width) * percent / 100);
            output.overwrite("[" + "#".repeat(filled) + ".".repeat(Math.max(0, width) - filled) + "] " + text);
        } else if (!output.isJson() && code != stage) {
            output.line(text.stripTrailing());
            output.flush();
        }
        stage = code;
        if (code.isLast()) {
            if (!output.isJson() && Terminal.isOutput()) {
                output.line("");
            }
            end.countDown();
        }
    }

    /** Waits until the upgrade has ended. */
    void awaitEnd() throws InterruptedException {
        while (!end.await(1, TimeUnit.SECONDS)) {
            Refusal.unless(System.nanoTime() - reported < TimeUnit.MINUTES.toNanos(MINUTES),
                    "The appliance has reported no progress for " + MINUTES + " minutes.");
        }
        Refusal.unless(stage == UpgradeCode.FINISHED, "The upgrade was given up; the firmware is unchanged.");
    }
}
