package com.kvo.talvern.config;

import com.kvo.talvern.TalvernException;

/**
 * The configuration service refuses a value.
 */
public class ValidationException extends TalvernException {
    private static final long serialVersionUID = 1L;

    private final String field;

    /**
     * @param field the name of the field that is refused
     * @param reason why it is refused
     */
    public ValidationException(String field, String reason) {
        super(field + ": " + reason);
        this.field = field;
    }

    /**
     * @return the name of the field that is refused
     */
    public String getField() {
        return field;
    }
}
