package com.kvo.talvern.console;

import picocli.CommandLine.Help;

/**
 * What the output is shown on, and where the input comes from. The starting script tells it, since Java can't: it
 * sets {@value #COLUMNS} where standard output is a terminal, and {@value #INPUT} where standard input is one.
 */
final class Terminal {
    /** The width of the terminal in characters. */
    static final String COLUMNS = "talvern.console.columns";

    private static final String INPUT = "talvern.console.input";

    private Terminal() {}

    /** The terminal's width, or this one where there is no terminal. */
    static int width(int otherwise) {
        int width = Integer.getInteger(COLUMNS, otherwise);
        return width > 0 ? width : otherwise;
    }

    /** Whether the output is a terminal. */
    static boolean isOutput() {
        return System.getProperty(COLUMNS) != null;
    }

    /** Whether the input is a terminal. */
    static boolean isInput() {
        return System.getProperty(INPUT) != null;
    }

    /** Colours, unless the output is no terminal or the user wants none. */
    static Help.ColorScheme colors() {
        String unwanted = System.getenv("NO_COLOR");
        boolean isColored = isOutput() && (unwanted == null || unwanted.isEmpty());
        return Help.defaultColorScheme(isColored ? Help.Ansi.ON : Help.Ansi.OFF);
    }
}
