package com.kvo.talvern.config;

import java.util.ArrayList;
import java.util.Iterator;
import java.util.List;

/**
 * A list of values.
 */
public class ArrayValue extends Value implements Iterable<Value> {
    private final List<Value> elements = new ArrayList<>();

    /**
     * @param mu the flag
     */
    public ArrayValue(boolean mu) {
        super(mu);
    }

    /**
     * Appends a value.
     *
     * @param value the value; may be null
     * @return true
     */
    public boolean add(Value value) {
        return elements.add(value);
    }

    /**
     * @param index from 0
     * @return the value at this place
     */
    public Value get(int index) {
        return elements.get(index);
    }

    /**
     * @return how many values there are
     */
    public int size() {
        return elements.size();
    }

    @Override
    public Iterator<Value> iterator() {
        return elements.iterator();
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof ArrayValue && ((ArrayValue) other).getMU() == getMU()
                && ((ArrayValue) other).elements.equals(elements);
    }

    @Override
    public int hashCode() {
        return elements.hashCode();
    }

    @Override
    public String toString() {
        return elements.toString();
    }
}
