package com.kvo.talvern.console;

import java.io.IOException;
import java.io.InputStream;

/** What the user types, or another program writes, while a command runs. */
final class Input {
    private static InputStream source;
    private static Lines lines;
    private static LineEditor editor;

    private Input() {}

    /** The lines of the standard input where that is no terminal. Whoever reads them takes turns with the others. */
    static Lines lines() {
        if (source != System.in) {
            source = System.in;
            lines = new Lines(source);
        }
        return lines;
    }

    /** From now on, lets what is typed be edited, and recalls what was typed before, if the terminal can do that. */
    static void edit() throws IOException {
        editor = LineEditor.create();
    }

    /** A line that is typed; null at the end. */
    static String line(String prompt) throws IOException {
        return editor != null ? editor.line(prompt) : System.console().readLine("%s", prompt);
    }

    /**
     * A password. It is asked without echo; where the standard input is no terminal, it is the next line there.
     *
     * @param isNew whether it has to be typed twice
     * @return the password; null if none was given
     * @throws IllegalArgumentException if the line there can't be read; the message says why
     */
    static String password(String user, boolean isNew) throws IOException {
        if (!isTerminal()) {
            Refusal.unless(!Terminal.isInput(), "A password can't be asked for without echo while the output does not"
                    + " go to the terminal.");
            return lines().next();
        }
        String password = hidden("Password of " + user + ": ");
        Refusal.unless(!isNew || password == null || password.equals(hidden("Once more: ")), "The two passwords differ.");
        return password;
    }

    private static String hidden(String prompt) throws IOException {
        if (editor != null) {
            return editor.hidden(prompt);
        }
        char[] typed = System.console().readPassword("%s", prompt);
        return typed == null ? null : String.valueOf(typed);
    }

    /** Whether somebody can be asked. */
    static boolean isTerminal() {
        return Terminal.isInput() && System.console() != null;
    }
}
