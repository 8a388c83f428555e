package com.kvo.talvern.console;

/** How the console ends, for scripts. */
public final class ExitCode {
    /** What was asked for is done. */
    public static final int DONE = 0;

    /** The appliance refused it, or failed. */
    public static final int REFUSED = 1;

    /** The command line, or what was to be read, is wrong. */
    public static final int USAGE = 2;

    /** The native library can't be loaded. */
    public static final int NOT_LOADED = 3;

    /** The Java classes, the bridge and the platform library don't fit together. */
    public static final int MISMATCH = 4;

    /** The result could not be written, or not all of it. */
    public static final int OUTPUT_LOST = 6;

    private ExitCode() {}
}
