package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The time zone of the appliance.
 */
public class TimeZoneUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(TimeZoneUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the name of the time zone in use; may be empty
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String getConfiguredTimeZone() {
        return _getConfiguredTimeZone();
    }

    /**
     * Changes the time zone.
     *
     * @param name one of {@link #getTimeZones}, not null
     * @return whether the appliance accepted it
     */
    public boolean setConfiguredTimeZone(String name) {
        return _setConfiguredTimeZone(name);
    }

    /**
     * @return the names of the time zones that the appliance knows
     */
    public String[] getTimeZones() {
        return _getTimeZones();
    }

    private native String _getConfiguredTimeZone();

    private native boolean _setConfiguredTimeZone(String name);

    private native String[] _getTimeZones();
}
