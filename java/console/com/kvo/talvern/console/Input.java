package com.kvo.talvern.console;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;

/** What the user types, or another program writes, while a command runs. */
final class Input {
    private static InputStream source;
    private static BufferedReader reader;

    private Input() {}

    /** A line of the standard input; null at its end. */
    static String line(String prompt) throws IOException {
        if (isTerminal()) {
            return System.console().readLine("%s", prompt);
        }
        if (source != System.in) {
            source = System.in;
            reader = new BufferedReader(new InputStreamReader(source, StandardCharsets.UTF_8));
        }
        return reader.readLine();
    }

    /**
     * A password. It is asked without echo; where the standard input is no terminal, it is the next line there.
     *
     * @param isNew whether it has to be typed twice
     * @return the password; null if none was given
     */
    static String password(String user, boolean isNew) throws IOException {
        if (!isTerminal()) {
            Refusal.unless(!Terminal.isInput(), "A password can't be asked for without echo while the output does not"
                    + " go to the terminal.");
            return line("");
        }
        char[] password = System.console().readPassword("%s", "Password of " + user + ": ");
        if (isNew && password != null) {
            char[] again = System.console().readPassword("%s", "Once more: ");
            Refusal.unless(again != null && String.valueOf(again).equals(String.valueOf(password)),
                    "The two passwords differ.");
        }
        return password == null ? null : String.valueOf(password);
    }

    /** Whether somebody can be asked. */
    static boolean isTerminal() {
        return Terminal.isInput() && System.console() != null;
    }
}
