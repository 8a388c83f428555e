package com.kvo.talvern.console;

import java.util.LinkedHashMap;
import java.util.Map;

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

    /** Something is wrong with the appliance. */
    public static final int UNHEALTHY = 5;

    /** The result could not be written, or not all of it. */
    public static final int OUTPUT_LOST = 6;

    /** What each says. */
    static final Map<String, String> MEANINGS = new LinkedHashMap<>();

    static {
        MEANINGS.put("0", "Done.");
        MEANINGS.put("1", "The appliance refused it, or failed.");
        MEANINGS.put("2", "The command line or the input is wrong.");
        MEANINGS.put("3", "Java is missing, or the native library can't be loaded.");
        MEANINGS.put("4", "Java classes, bridge and platform library don't fit together.");
        MEANINGS.put("5", "Something is wrong with the appliance (show health).");
        MEANINGS.put("6", "The result could not be written.");
    }

    private ExitCode() {}
}
