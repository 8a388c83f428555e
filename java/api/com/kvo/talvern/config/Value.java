package com.kvo.talvern.config;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The value of a configuration object: a text ({@link SimpleValue}), values under keys ({@link StructValue}) or a
 * list of values ({@link ArrayValue}). The configuration service takes trees of up to 1,000 levels,
 * 4,000,000 values and 256 MiB of text.
 *
 * <p>Two values are equal if their flags and contents are. Values may be changed, so they are not for use as
 * keys, and not by several threads at once.
 */
public abstract class Value {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(Value.class);

    {
        LIBRARY.require();
    }

    private final boolean mu;

    /**
     * @param mu the flag
     */
    protected Value(boolean mu) {
        this.mu = mu;
    }

    /**
     * @return the flag, whose meaning is the configuration service's
     */
    public boolean getMU() {
        return mu;
    }

    /**
     * @return this value as XML text in the appliance's format
     * @throws TalvernException if this value is of a kind that the appliance does not know, or the appliance
     *     fails
     */
    public String asXML() {
        return _asXML();
    }

    private native String _asXML();
}
