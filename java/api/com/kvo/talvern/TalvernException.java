package com.kvo.talvern;

/**
 * A call to the appliance failed. The message is the appliance's own, or says which argument was wrong, such as
 * "null string argument": null is allowed only where a method says so, and the appliance is not asked then.
 */
public class TalvernException extends RuntimeException {
    private static final long serialVersionUID = 1L;

    /**
     * @param message what went wrong
     */
    public TalvernException(String message) {
        super(message);
    }
}
