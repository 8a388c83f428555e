package com.kvo.talvern.firmwaremanager;

import com.kvo.talvern.NativeLibrary;

/**
 * The appliance's firmware: the one that runs and the one that ran before.
 */
public class FirmwareManagerUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(FirmwareManagerUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * Receives the progress of firmware upgrades.
     *
     * <p>An upgrade that the appliance refuses, by another status than 0 or an exception, need not be reported. No report
     * comes once the JVM begins to end, nor, without a word, one whose code has no constant in {@link UpgradeCode}. So
     * whoever waits for the last report limits the time since the one before:
     *
     * <pre>{@code
     * BlockingQueue<UpgradeCode> reports = new LinkedBlockingQueue<>();
     * FirmwareManagerUtils firmware = new FirmwareManagerUtils();
     * if (firmware.upgradeFirmware("talvern-2.1.img", false, true, (done, total, code) -> reports.add(code)) == 0) {
     *     UpgradeCode code;
     *     do {
     *         code = reports.poll(5, TimeUnit.MINUTES);
     *     } while (code != null && !code.isLast());
     *     System.out.println(code == null ? "no news for five minutes" : code);
     * }
     * }</pre>
     */
    public interface UpgradeCallback {
        /**
         * The upgrade has come this far. Is called on a thread of the appliance or on that of the upgrade's
         * caller, possibly from several threads at a time and after the upgrade's call has returned. May start another
         * upgrade. If it throws on the caller's thread, the caller receives the first exception; on a thread of
         * the appliance nobody does. Further reports arrive all the same.
         *
         * @param done how much is done
         * @param total how much there is to do in all; 0 if that is not known yet
         * @param code what is being done
         */
        void progress(int done, int total, UpgradeCode code);
    }

    /**
     * @return whether the running firmware is signed with the release keys
     * @throws com.kvo.talvern.TalvernException if the appliance fails; so does every method of this class
     */
    public boolean isReleaseKeyed() {
        return _isReleaseKeyed();
    }

    /**
     * Goes back to the previous firmware.
     *
     * @return 0 if that worked, 1 if not
     */
    public int rollbackFirmware() {
        return _rollbackFirmware();
    }

    /**
     * Deletes the previous firmware, which can't be gone back to any more.
     *
     * @return a status, 0 for success
     */
    public int deletePreviousFirmware() {
        return _deletePreviousFirmware();
    }

    /**
     * Writes the firmware again.
     *
     * @param image the name of the image, not null
     * @return a status, 0 for success
     */
    public int reflashFirmware(String image) {
        return _reflashFirmware(image);
    }

    /**
     * Installs another firmware. Returns no earlier than three seconds after the appliance has accepted or
     * refused, and maybe before the installation is complete: its end is reported to the callback.
     *
     * @param image the name of the image, not null
     * @param force install an image that is not signed with the release keys, too
     * @param keepPrevious keep the firmware that runs now, to be able to go back to it
     * @param callback receives the progress of this and all other upgrades, in place of the callback before;
     *     null: the callback before stays
     * @return a status, 0 for success
     */
    public int upgradeFirmware(String image, boolean force, boolean keepPrevious, UpgradeCallback callback) {
        return _upgradeFirmware(image, force, keepPrevious, callback);
    }

    private native boolean _isReleaseKeyed();

    private native int _rollbackFirmware();

    private native int _deletePreviousFirmware();

    private native int _reflashFirmware(String image);

    private native int _upgradeFirmware(String image, boolean force, boolean keepPrevious, UpgradeCallback callback);
}
