package com.kvo.talvern.config;

import java.util.Objects;

/**
 * A single text.
 */
public class SimpleValue extends Value {
    private final String value;

    /**
     * @param value the text, not null
     * @param mu the flag
     */
    public SimpleValue(String value, boolean mu) {
        super(mu);
        this.value = Objects.requireNonNull(value, "value");
    }

    /**
     * @return the text
     */
    public String getValue() {
        return value;
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof SimpleValue && ((SimpleValue) other).getMU() == getMU()
                && ((SimpleValue) other).value.equals(value);
    }

    @Override
    public int hashCode() {
        return value.hashCode();
    }

    @Override
    public String toString() {
        return value;
    }
}
