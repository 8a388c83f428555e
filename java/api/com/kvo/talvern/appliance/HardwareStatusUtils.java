package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;
import java.util.HashMap;
import java.util.Map;

/**
 * The state of the appliance's hardware, and a few controls.
 *
 * <p>Each call asks the appliance anew. A list that can't be read or has no entries is null. Every method throws
 * a {@link TalvernException} if the appliance fails.
 *
 * <pre>{@code
 * Sensor[] fans = new HardwareStatusUtils().getFanStatus();
 * for (Sensor fan : fans == null ? new Sensor[0] : fans) {
 *     System.out.println(fan.getName() + " " + fan.getReading() + (fan.isOk() ? "" : ", which is wrong"));
 * }
 * }</pre>
 */
public class HardwareStatusUtils {
    /** The configuration service, for {@link #isServiceReady} and {@link #isNetServiceReady}. */
    public static final int CONFIGURATION_SERVICE = 0;

    /** The process manager. */
    public static final int PROCESS_MANAGER = 1;

    /** The firmware manager. */
    public static final int FIRMWARE_MANAGER = 2;

    /** The user manager. */
    public static final int USER_MANAGER = 3;

    private static final NativeLibrary LIBRARY = NativeLibrary.load(HardwareStatusUtils.class);

    {
        LIBRARY.require();
    }

    /** Whether somebody has opened the appliance's chassis. */
    public enum IntrusionStatus {
        /** The appliance can't tell. */
        UNKNOWN,
        /** Not opened since the state was last cleared. */
        INTACT,
        /** Opened since the state was last cleared. */
        OPENED
    }

    /**
     * @return the fans, or null
     */
    public Sensor[] getFanStatus() {
        return _getFanStatus();
    }

    /**
     * @return the temperatures, or null
     */
    public Sensor[] getTemperatureStatus() {
        return _getTemperatureStatus();
    }

    /**
     * @return the power supplies, or null
     */
    public Sensor[] getPowerStatus() {
        return _getPowerStatus();
    }

    /**
     * @return the voltages with their limits, or null
     */
    public Sensor[] getVoltageStatus() {
        return _getVoltageStatus();
    }

    /**
     * @return the RAID volumes with their partitions, or null
     */
    public RaidVolume[] getRaidVolumes() {
        return _getRaidVolumes();
    }

    /**
     * @return the physical disks, or null
     */
    public DiskSnapShot[] getRaidPhysicalDiskStatus() {
        return _getRaidPhysicalDiskStatus();
    }

    /**
     * @return the load of each processor in percent, by its number from 0; or null
     */
    public Map<Integer, Integer> getCPUUsage() {
        return _getCPUUsage();
    }

    /**
     * @return what all processors together do, in percent: 0 user programs, 1 the system, 2 waiting for
     *     devices, 3 nothing; or null
     */
    public Map<Integer, Integer> getCPUDetailedUsage() {
        return _getCPUDetailedUsage();
    }

    /**
     * @return the memory in KiB, as an unsigned number ({@link Integer#toUnsignedLong}); -1 if it can't be
     *     read
     */
    public int getTotalMemory() {
        return _getTotalMemory();
    }

    /**
     * @return the free memory in KiB, as an unsigned number ({@link Integer#toUnsignedLong}); -1 if it can't
     *     be read
     */
    public int getFreeMemory() {
        return _getFreeMemory();
    }

    /**
     * @return the seconds since the appliance was started
     */
    public long getUptime() {
        return _getUptime();
    }

    /**
     * @return the internal flash storage; null if it can't be read
     */
    public FlashVolume getFlashStatus() {
        return _getFlashStatus();
    }

    /**
     * @return when the battery was installed, in milliseconds since 1970; -1 if unknown
     */
    public long getBatteryInstallationTime() {
        return _getBatteryInstallationTime();
    }

    /**
     * @return when the battery is due for replacement, in milliseconds since 1970; -1 if unknown
     */
    public long getBatteryExpirationTime() {
        return _getBatteryExpirationTime();
    }

    /**
     * Tells the appliance that its battery has been replaced today.
     *
     * @return whether it took note
     */
    public boolean batteryReplaced() {
        return _batteryReplaced();
    }

    /**
     * @return whether the chassis was opened
     * @throws ArrayIndexOutOfBoundsException if the appliance reports a state that {@link IntrusionStatus}
     *     lacks
     */
    public IntrusionStatus getIntrusionStatus() {
        return _getIntrusionStatus();
    }

    /**
     * Sets the intrusion state to {@link IntrusionStatus#INTACT}.
     *
     * @return a status, 0 for success
     */
    public int clearIntrusionStatus() {
        return _clearIntrusionStatus();
    }

    /**
     * Switches the light by which the appliance is found in its rack.
     *
     * @param on whether it is to shine
     */
    public void setLocateLED(boolean on) {
        _setLocateLED(on);
    }

    /**
     * @param service a service's number, such as {@link #PROCESS_MANAGER}
     * @return whether it runs
     */
    public boolean isServiceReady(int service) {
        return _isServiceReady(service);
    }

    /**
     * @param service a service's number, such as {@link #PROCESS_MANAGER}
     * @return whether it answers from the network
     */
    public boolean isNetServiceReady(int service) {
        return _isNetServiceReady(service);
    }

    private native Sensor[] _getFanStatus();

    private native Sensor[] _getTemperatureStatus();

    private native Sensor[] _getPowerStatus();

    private native Sensor[] _getVoltageStatus();

    private native RaidVolume[] _getRaidVolumes();

    private native DiskSnapShot[] _getRaidPhysicalDiskStatus();

    private native HashMap<Integer, Integer> _getCPUUsage();

    private native HashMap<Integer, Integer> _getCPUDetailedUsage();

    private native int _getTotalMemory();

    private native int _getFreeMemory();

    private native long _getUptime();

    private native FlashVolume _getFlashStatus();

    private native long _getBatteryInstallationTime();

    private native long _getBatteryExpirationTime();

    private native boolean _batteryReplaced();

    private native IntrusionStatus _getIntrusionStatus();

    private native int _clearIntrusionStatus();

    private native void _setLocateLED(boolean on);

    private native boolean _isServiceReady(int service);

    private native boolean _isNetServiceReady(int service);
}
