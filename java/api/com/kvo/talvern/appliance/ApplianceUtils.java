package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The appliance as a whole: identity, locale and time, inventory, network diagnostics, reset.
 */
public class ApplianceUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(ApplianceUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the serial number; null if the appliance does not know it
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String getSerialNumber() {
        return _getSerialNumber();
    }

    /**
     * @return the machine type; null if the appliance does not know it
     */
    public String getMachineType() {
        return _getMachineType();
    }

    /**
     * @return machine type and model in one text; null if the appliance does not know it
     */
    public String getMTM() {
        return _getMTM();
    }

    /**
     * @return whether the system is an appliance, and not for instance a development machine
     */
    public boolean isAppliance() {
        return _isAppliance();
    }

    /**
     * @return the number of processors
     */
    public int getCPUCount() {
        return _getCPUCount();
    }

    /**
     * @return the locale in use; may be empty
     */
    public String getLocale() {
        return _getLocale();
    }

    /**
     * Changes the locale.
     *
     * @param locale the new locale, not null
     * @param modifier what else the appliance needs to know of the locale; may be null
     * @return whether the appliance accepted it
     */
    public boolean setLocale(String locale, String modifier) {
        return _setLocale(locale, modifier);
    }

    /**
     * Changes the locale that is in use where none is set.
     *
     * @param locale the new locale, not null
     * @return whether the appliance accepted it
     */
    public boolean setDefaultLocale(String locale) {
        return _setDefaultLocale(locale);
    }

    /**
     * @return the appliance's date and time; how many texts there are and what they look like is the
     *     appliance's choice
     */
    public String[] getDateTime() {
        return _getDateTime();
    }

    /**
     * Sets the clock.
     *
     * @param time the time in the appliance's own unit; in the simulated appliance seconds since 1970
     * @return whether the clock was set
     */
    public boolean setDateTime(long time) {
        return _setDateTime(time);
    }

    /**
     * @return what the appliance says about its hardware
     */
    public HWInfo getHardwareInfo() {
        return _getHardwareInfo();
    }

    /**
     * @return the firmware of each component; of length 0 if it could not be read
     */
    public ComponentFirmware[] getComponentInfo() {
        return _getComponentInfo();
    }

    /**
     * Resolves a host name on the appliance.
     *
     * @param host a host name, not null
     * @return what it resolves to; empty if it can't be resolved
     */
    public String dnsResolve(String host) {
        return _dnsResolve(host);
    }

    /**
     * Opens a TCP connection from the appliance and closes it.
     *
     * @param host a host name or address, not null
     * @param port the port
     * @return why it could not be opened; empty if it could
     */
    public String tcpConnect(String host, int port) {
        return _tcpConnect(host, port);
    }

    /**
     * Pings a host from the appliance.
     *
     * @param host a host name or address, not null
     * @return whether the host answers
     */
    public boolean pingHost(String host) {
        return _pingHost(host);
    }

    /**
     * @return whether the network is ready: 1 if it is, 2 if it is on the way, 3 if not
     */
    public int networkReady() {
        return _networkReady();
    }

    /**
     * Sets the appliance's clock by an NTP server.
     *
     * @param server a host name or address, not null
     * @return whether the clock was set
     */
    public boolean syncNTPServer(String server) {
        return _syncNTPServer(server);
    }

    /**
     * Brings the appliance back to its initial state: all settings are lost.
     *
     * <pre>{@code
     * FileError[] errors = new FileError[100];
     * int status = new ApplianceUtils().deviceRESET(errors);
     * for (int i = 0; i < errors.length && errors[i] != null; i++) {
     *     System.out.println(errors[i].getFile() + " is as it was");
     * }
     * System.out.println(status == 0 ? "reset" : "not all is reset");
     * }</pre>
     *
     * @param errors receives one entry for each file that could not be reset, from index 0 on, as far as they
     *     fit; further elements stay as they are; not null
     * @return a status, 0 for success
     */
    public int deviceRESET(FileError[] errors) {
        return _deviceRESET(errors);
    }

    /**
     * @return whether all SSH host keys of the appliance are strong
     */
    public boolean areHostSSHKeysStrong() {
        return _areHostSSHKeysStrong();
    }

    /**
     * Replaces the SSH host keys of the appliance.
     *
     * @return a status, 0 for success
     */
    public int resetHostSSHKeys() {
        return _resetHostSSHKeys();
    }

    /**
     * Lets the appliance fail, to see how a failure arrives.
     *
     * @param text tells the appliance how to fail, not null
     */
    public void triggerException(String text) {
        _triggerException(text);
    }

    private native String _getSerialNumber();

    private native String _getMachineType();

    private native String _getMTM();

    private native boolean _isAppliance();

    private native int _getCPUCount();

    private native String _getLocale();

    private native boolean _setLocale(String locale, String modifier);

    private native boolean _setDefaultLocale(String locale);

    private native String[] _getDateTime();

    private native boolean _setDateTime(long time);

    private native HWInfo _getHardwareInfo();

    private native ComponentFirmware[] _getComponentInfo();

    private native String _dnsResolve(String host);

    private native String _tcpConnect(String host, int port);

    private native boolean _pingHost(String host);

    private native int _networkReady();

    private native boolean _syncNTPServer(String server);

    private native int _deviceRESET(FileError[] errors);

    private native boolean _areHostSSHKeysStrong();

    private native int _resetHostSSHKeys();

    private native void _triggerException(String text);
}
