package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The appliance's SNMP daemon.
 */
public class SNMPUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(SNMPUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * Starts the daemon.
     *
     * @return whether it was started; false also if it ran already
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public boolean startSNMP() {
        return _startSNMP();
    }

    /**
     * Stops the daemon.
     *
     * @return whether it was stopped; false also if it did not run
     */
    public boolean stopSNMP() {
        return _stopSNMP();
    }

    /**
     * Stops the daemon if it runs, and starts it.
     *
     * @return whether it runs now
     */
    public boolean restartSNMP() {
        return _restartSNMP();
    }

    private native boolean _startSNMP();

    private native boolean _stopSNMP();

    private native boolean _restartSNMP();
}
