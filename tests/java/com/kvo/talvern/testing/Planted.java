package com.kvo.talvern.testing;

/** Native methods with one fault each, which the tests must find. */
public class Planted {
    /** Loads the faulty methods. */
    public static void load() {
        System.load(System.getProperty("talvern.planted.library"));
    }

    native boolean _swallowsException(String text);

    native boolean _callsPlatformWithNull(String text);

    native boolean _hidesMissingClass(String text);

    native boolean _losesBuffer(String text);

    native boolean _releasesTwice(String text);

    native boolean _releasesBackwards(String first, String second);
}
