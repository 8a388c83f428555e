package com.kvo.talvern.testing;

import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import com.kvo.talvern.firmwaremanager.UpgradeCode;
import java.net.URL;
import java.net.URLClassLoader;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

/** Shows as text what was reported to it. */
public class RecordingCallback implements FirmwareManagerUtils.UpgradeCallback {
    private final List<String> reports = new ArrayList<>();

    @Override
    public synchronized void progress(int done, int total, UpgradeCode code) {
        reports.add(done + "/" + total + " " + code);
    }

    @Override
    public synchronized String toString() {
        return reports.toString();
    }

    /** Throws at every report. */
    public static class Throwing extends RecordingCallback {
        @Override
        public synchronized void progress(int done, int total, UpgradeCode code) {
            super.progress(done, total, code);
            throw new IllegalStateException("at " + done);
        }
    }

    /** Starts another upgrade when the report is its first, with a callback of its own. */
    public static class Restarting extends RecordingCallback {
        private RecordingCallback next;

        @Override
        public synchronized void progress(int done, int total, UpgradeCode code) {
            super.progress(done, total, code);
            if (next == null) {
                next = new RecordingCallback();
                new FirmwareManagerUtils().upgradeFirmware("next", false, false, next);
            }
        }

        @Override
        public synchronized String toString() {
            return super.toString() + " then " + next;
        }
    }

    /** An object whose class and interface come from a class loader that nobody else knows. */
    public static Object fromHiddenClasses() throws ReflectiveOperationException {
        URL[] jars = Stream.of(RecordingCallback.class, FirmwareManagerUtils.class)
                .map(each -> each.getProtectionDomain().getCodeSource().getLocation()).toArray(URL[]::new);
        @SuppressWarnings("resource") // stays open as long as its classes are used
        ClassLoader loader = new URLClassLoader(jars, null);
        return loader.loadClass(RecordingCallback.class.getName()).getDeclaredConstructor().newInstance();
    }
}
