package com.kvo.talvern.console;

import java.io.IOException;
import java.io.PrintWriter;
import java.util.Arrays;
import java.util.List;
import picocli.CommandLine.Help;

/** Takes the results of commands: for people as lines and tables, for programs as JSON. */
final class Output {
    private static final int GAP = 2;
    private static final int NARROWEST = 8;

    private final PrintWriter out;
    private final Help.ColorScheme colors;
    private final boolean isJson;

    Output(PrintWriter out, Help.ColorScheme colors, boolean isJson) {
        this.out = out;
        this.colors = colors;
        this.isJson = isJson;
    }

    /**
     * Shows a result.
     *
     * @param value for programs: maps, lists, texts, numbers, truth values and nulls
     * @param show for people: prints the same by the methods below
     */
    void result(Object value, Runnable show) throws IOException {
        if (isJson) {
            Json.write(out, value);
        } else {
            show.run();
        }
    }

    /** Prints a line. */
    void line(String text) {
        out.println(text);
    }

    /** A text that stands for success, in colour if there are colours. */
    String good(String text) {
        return colors.ansi().string("@|bold,green " + text + "|@");
    }

    /** A text that stands for a failure, in colour if there are colours. */
    String bad(String text) {
        return colors.ansi().string("@|bold,red " + text + "|@");
    }

    /**
     * Prints a table within the terminal's width: what is too long goes on in the next line of its column.
     *
     * @param titles one per column
     * @param rows the texts of each row
     */
    void table(List<String> titles, List<List<String>> rows) {
        int[] widths = titles.stream().mapToInt(String::length).toArray();
        for (List<String> row : rows) {
            for (int i = 0; i < widths.length; ++i) {
                widths[i] = Math.max(widths[i], row.get(i).length());
            }
        }
        shrink(widths, Terminal.width(Integer.MAX_VALUE) - GAP * (widths.length - 1));
        printRow(titles, widths);
        rows.forEach(row -> printRow(row, widths));
    }

    /** Takes from the widest columns what is too much. */
    private static void shrink(int[] widths, int available) {
        while (Arrays.stream(widths).asLongStream().sum() > available) {
            int widest = 0;
            for (int i = 1; i < widths.length; ++i) {
                widest = widths[i] > widths[widest] ? i : widest;
            }
            if (widths[widest] <= NARROWEST) {
                return;
            }
            --widths[widest];
        }
    }

    private void printRow(List<String> texts, int[] widths) {
        String[] rest = texts.toArray(new String[0]);
        while (Arrays.stream(rest).anyMatch(text -> !text.isEmpty())) {
            StringBuilder line = new StringBuilder();
            int column = 0;
            for (int i = 0; i < rest.length; ++i) {
                int end = end(rest[i], widths[i]);
                line.append(" ".repeat(column - line.length())).append(rest[i], 0, end);
                rest[i] = rest[i].substring(end).stripLeading();
                column += widths[i] + GAP;
            }
            out.println(line.toString().stripTrailing());
        }
    }

    /** Where a text that is too long for its column is divided: between words or parts of a name if possible. */
    private static int end(String text, int width) {
        if (text.length() <= width) {
            return text.length();
        }
        int end = width;
        while (end > width / 2 && " .(".indexOf(text.charAt(end)) < 0) {
            --end;
        }
        return end > width / 2 ? end : width;
    }
}
