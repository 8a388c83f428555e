package com.kvo.talvern.testing;

/** Stands for a constant whose number is not its ordinal. */
public class Numbered {
    /** The number. */
    public int getValue() {
        return 4;
    }
}
