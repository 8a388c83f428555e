package com.kvo.talvern.console;

/** The appliance did not do what it was asked for, and has no exception of its own for that. */
final class Refusal extends RuntimeException {
    private static final long serialVersionUID = 1L;

    Refusal(String message) {
        super(message);
    }

    /** Makes sure that a status stands for success. */
    static void unlessZero(int status) {
        if (status != 0) {
            throw new Refusal("The appliance refuses with status " + status + ".");
        }
    }

    /** Makes sure that the appliance did what it was asked for. */
    static void unless(boolean isDone, String message) {
        if (!isDone) {
            throw new Refusal(message);
        }
    }
}
