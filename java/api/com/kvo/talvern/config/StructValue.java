package com.kvo.talvern.config;

import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Objects;
import java.util.Set;

/**
 * Values under keys. The keys keep the order in which they were put; what comes from the appliance is in ascending
 * order of the keys.
 */
public class StructValue extends Value {
    private final Map<String, Value> members = new LinkedHashMap<>();

    /**
     * @param mu the flag
     */
    public StructValue(boolean mu) {
        super(mu);
    }

    /**
     * Stores a value under a key.
     *
     * @param key the key, not null
     * @param value the value; may be null
     * @return what was stored under the key before, or null
     */
    public Value put(String key, Value value) {
        return members.put(Objects.requireNonNull(key, "key"), value);
    }

    /**
     * @param key a key
     * @return what is stored under the key, or null
     */
    public Value get(String key) {
        return members.get(key);
    }

    /**
     * @param key a key
     * @return what was stored under the key and is not any longer, or null
     */
    public Value remove(String key) {
        return members.remove(key);
    }

    /**
     * @return the keys with their values, as a view: changes to it change this value
     */
    public Set<Map.Entry<String, Value>> entrySet() {
        return members.entrySet();
    }

    /**
     * @return how many keys there are
     */
    public int size() {
        return members.size();
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof StructValue && ((StructValue) other).getMU() == getMU()
                && ((StructValue) other).members.equals(members);
    }

    @Override
    public int hashCode() {
        return members.hashCode();
    }

    @Override
    public String toString() {
        return members.toString();
    }
}
