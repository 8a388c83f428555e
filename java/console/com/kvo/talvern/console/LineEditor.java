package com.kvo.talvern.console;

import java.io.FileDescriptor;
import java.io.FileInputStream;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;
import jline.console.ConsoleReader;
import jline.console.UserInterruptException;
import picocli.AutoComplete;

/** Edits the lines that are typed, recalls earlier ones, and completes commands and options. */
final class LineEditor {
    private final ConsoleReader reader;

    private LineEditor(ConsoleReader reader) {
        this.reader = reader;
    }

    /** An editor on the process's terminal; null if that can't do more than take lines: it would show a password. */
    static LineEditor create() throws IOException {
        ConsoleReader reader = new ConsoleReader("talvern-console", new FileInputStream(FileDescriptor.in), System.out,
                null, "UTF-8");
        if (!reader.getTerminal().isSupported()) {
            return null;
        }
        reader.setExpandEvents(false);
        reader.setHandleUserInterrupt(true);
        reader.addCompleter(LineEditor::complete);
        return new LineEditor(reader);
    }

    /** A line; null at the end. */
    String line(String prompt) throws IOException {
        try {
            return reader.readLine(prompt);
        } catch (UserInterruptException e) {
            return "";
        }
    }

    /** A line that is neither shown nor recalled; null at the end, and if the user does not want to go on. */
    String hidden(String prompt) throws IOException {
        try {
            return reader.readLine(prompt, (char) 0);
        } catch (UserInterruptException e) {
            return null;
        }
    }

    private static int complete(String line, int cursor, List<CharSequence> candidates) {
        String before = line.substring(0, cursor);
        List<String> words = new ArrayList<>(List.of(before.strip().split("\\s+")));
        if (before.isEmpty() || Character.isWhitespace(before.charAt(before.length() - 1))) {
            words.add("");
        }
        int last = words.size() - 1;
        int length = words.get(last).length();
        return AutoComplete.complete(Console.complete().getCommandSpec(), words.toArray(new String[0]), last, length, cursor,
                candidates);
    }
}
