package com.kvo.talvern.core;

import com.kvo.talvern.NativeLibrary;

/**
 * What a process sets up before it uses the appliance.
 */
public class TalvernCore {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(TalvernCore.class);

    {
        LIBRARY.require();
    }

    /**
     * Starts the appliance's trace log for this process. Nothing else depends on it: without it, this process
     * leaves nothing in that log.
     *
     * @param name the name under which this process writes to the log, not null
     * @throws com.kvo.talvern.TalvernException if the log can't be started
     */
    public void initLogging(String name) {
        _initLogging(name);
    }

    private native void _initLogging(String name);
}
