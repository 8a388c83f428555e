package com.kvo.talvern;

/**
 * A call to the appliance failed. The message is the appliance's own, or says which argument was wrong.
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
