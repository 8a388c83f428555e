package com.kvo.talvern.config;

/**
 * What a configuration object is doing.
 */
public enum OpState {
    /** The state can't be told. */
    UNKNOWN(0),
    /** It works. */
    UP(1),
    /** It does not work, because it is disabled or what it depends on is missing. */
    DOWN(2),
    /** It is on its way to another state. */
    PENDING(3),
    /** It should work and does not. */
    FAILED(4);

    private final int value;

    OpState(int value) {
        this.value = value;
    }

    /**
     * @return the appliance's number for this constant
     */
    public int getValue() {
        return value;
    }
}
