package com.kvo.talvern.config;

/**
 * What came of a request to the configuration service. The numbers that other classes return as a status mean
 * the same, where the appliance has no meaning of its own for them.
 */
public enum ReturnCode {
    /** It was done. */
    OK(0),
    /** The appliance could not do it. */
    FAILED(1),
    /** There is no such object. */
    NOT_FOUND(2),
    /** There is an object of this name already. */
    ALREADY_EXISTS(3),
    /** The appliance does not let this object be treated so. */
    NOT_PERMITTED(4),
    /** The appliance is at work on another change. */
    BUSY(5),
    /** The name is not one that an object can have. */
    INVALID_NAME(6),
    /** There is no such type of objects. */
    INVALID_TYPE(7),
    /** Other objects use this one. */
    IN_USE(8),
    /** There was no value, or none of a known kind. */
    NULL_VALUE(9);

    private final int value;

    ReturnCode(int value) {
        this.value = value;
    }

    /**
     * @return the appliance's number for this constant
     */
    public int getValue() {
        return value;
    }
}
