package com.kvo.talvern.console;

import picocli.CommandLine.Help;

/**
 * What the output is shown on. The starting script tells it, since Java can't: it sets {@value #COLUMNS} where
 * standard output is a terminal.
 */
final class Terminal {
    /** The width of the terminal in characters. */
    static final String COLUMNS = "talvern.console.columns";

    private Terminal() {}

    /** The terminal's width, or this one where there is no terminal. */
    static int width(int otherwise) {
        int width = Integer.getInteger(COLUMNS, otherwise);
        return width > 0 ? width : otherwise;
    }

    /** Colours, unless the output is no terminal or the user wants none. */
    static Help.ColorScheme colors() {
        String unwanted = System.getenv("NO_COLOR");
        boolean isColored = System.getProperty(COLUMNS) != null && (unwanted == null || unwanted.isEmpty());
        return Help.defaultColorScheme(isColored ? Help.Ansi.ON : Help.Ansi.OFF);
    }
}
