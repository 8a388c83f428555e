package com.kvo.talvern.services;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * Tests of the appliance's services, each known by a name.
 */
public class ServicesUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(ServicesUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * Starts to run a test again and again.
     *
     * @param name the test, not null
     * @param interval the seconds from one run to the next
     * @return the appliance's status, 0 for success
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public int startTest(String name, int interval) {
        return _startTest(name, interval);
    }

    /**
     * Ends what {@link #startTest} started.
     *
     * @param name the test, not null
     * @return the appliance's status, 0 for success
     */
    public int stopTest(String name) {
        return _stopTest(name);
    }

    /**
     * Runs a test and returns when it is done. How it went is not reported, unless the appliance fails.
     *
     * @param name the test, not null
     * @param count how many times
     */
    public void performTest(String name, int count) {
        _performTest(name, count);
    }

    private native int _startTest(String name, int interval);

    private native int _stopTest(String name);

    private native void _performTest(String name, int count);
}
