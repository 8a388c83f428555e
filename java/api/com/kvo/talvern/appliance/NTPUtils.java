package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The servers from which the appliance takes the time.
 */
public class NTPUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(NTPUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the names or addresses of the time servers, in order of preference; empty if there are none
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String[] getTimeServers() {
        return _getTimeServers();
    }

    /**
     * Replaces the time servers.
     *
     * @param servers names or addresses in order of preference; neither the array nor an element is null
     * @return whether the appliance accepted them; if not, nothing has changed
     */
    public boolean setTimeServers(String... servers) {
        return _setTimeServers(servers);
    }

    private native String[] _getTimeServers();

    private native boolean _setTimeServers(String[] servers);
}
