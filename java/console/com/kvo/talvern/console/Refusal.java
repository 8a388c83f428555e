package com.kvo.talvern.console;

/** The appliance did not do what it was asked for, and has no exception of its own for that. */
final class Refusal extends RuntimeException {
    private static final long serialVersionUID = 1L;

    Refusal(String message) {
        super(message);
    }

    /**
     * Makes sure that a status stands for success.
     *
     * @param what the kind of thing that it is about, such as "user"
     */
    static void unlessZero(int status, String what) {
        if (status != 0) {
            throw new Refusal(words(status, what) + " (status " + status + ").");
        }
    }

    /** What a status says. Appliances number them as {@link com.kvo.talvern.config.ReturnCode} does. */
    private static String words(int status, String what) {
        switch (status) {
            case 1: return "The appliance could not do it";
            case 2: return "There is no such " + what;
            case 3: return "The " + what + " exists already";
            case 4: return "The appliance does not permit this";
            case 5: return "The " + what + " is busy";
            case 6: return "The name or value is not acceptable";
            case 7: return "This is not for that type of " + what;
            case 8: return "The " + what + " is in use";
            case 9: return "There is no value";
            default: return "The appliance refuses";
        }
    }

    /** Makes sure that the appliance did what it was asked for. */
    static void unless(boolean isDone, String message) {
        if (!isDone) {
            throw new Refusal(message);
        }
    }
}
