package com.kvo.talvern.config;

/**
 * What an administrator wants a configuration object to do.
 */
public enum AdminState {
    /** The state can't be told; not to be set. */
    UNKNOWN(0),
    /** It shall work. */
    ENABLED(1),
    /** It shall rest. */
    DISABLED(2);

    private final int value;

    AdminState(int value) {
        this.value = value;
    }

    /**
     * @return the appliance's number for this constant
     */
    public int getValue() {
        return value;
    }
}
