package com.kvo.talvern.appliance;

import java.util.Arrays;

/**
 * The appliance's internal flash storage at one moment.
 */
public final class FlashVolume {
    private final int size;
    private final int used;

    /**
     * @param size see {@link #getSize}
     * @param used see {@link #getUsed}
     */
    public FlashVolume(int size, int used) {
        this.size = size;
        this.used = used;
    }

    /**
     * @return its size in MiB
     */
    public int getSize() {
        return size;
    }

    /**
     * @return how much of it is in use, in MiB
     */
    public int getUsed() {
        return used;
    }

    private Object[] values() {
        return new Object[] {size, used};
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof FlashVolume && Arrays.equals(values(), ((FlashVolume) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(values());
    }

    @Override
    public String toString() {
        return "FlashVolume{size=" + size + ", used=" + used + "}";
    }
}
