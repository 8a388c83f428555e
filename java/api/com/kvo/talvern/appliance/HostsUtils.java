package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The hosts table: host names that the appliance resolves by itself, listed under their address.
 */
public class HostsUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(HostsUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the addresses that have host names; empty if there are none
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String[] getAddresses() {
        return _getAddresses();
    }

    /**
     * @param address an IP address, not null
     * @return its host names; empty if it has none
     */
    public String[] getHostnames(String address) {
        return _getHostnames(address);
    }

    /**
     * Replaces the host names of an address.
     *
     * @param address an IP address, not null
     * @param hostnames its new host names; neither the array nor an element is null
     * @return whether the appliance accepted them; if not, nothing has changed
     */
    public boolean setHostnames(String address, String... hostnames) {
        return _setHostnames(address, hostnames);
    }

    /**
     * Removes an address and its host names.
     *
     * @param address an IP address, not null
     * @return whether the address was there
     */
    public boolean deleteHostnames(String address) {
        return _deleteHostnames(address);
    }

    private native String[] _getAddresses();

    private native String[] _getHostnames(String address);

    private native boolean _setHostnames(String address, String[] hostnames);

    private native boolean _deleteHostnames(String address);
}
