package com.kvo.talvern.console;

import java.io.IOException;
import java.io.PrintWriter;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import picocli.CommandLine.Help;
import picocli.CommandLine.Help.Ansi.Style;

/** Takes the results of commands: for people as lines and tables, for programs as JSON. */
final class Output {
    private static final int GAP = 2;
    private static final int NARROWEST = 8;
    private static final int INDENT = 2;
    private static final int MOST_COLUMNS = 8;

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

    /**
     * Shows fields: for programs as JSON, for people as lines and tables. The value of a field that is alone is
     * shown without its name.
     */
    void show(Fields fields) throws IOException {
        result(fields, () -> print(fields.size() == 1 ? fields.values().iterator().next() : fields, 0));
    }

    /** Whether the result is for programs. */
    boolean isJson() {
        return isJson;
    }

    /** Prints a line. */
    void line(String text) {
        out.println(text);
    }

    /** Makes sure that what was printed is seen. */
    void flush() {
        out.flush();
    }

    /** Prints a text over the line that was printed so before; for terminals. */
    void overwrite(String text) {
        out.print("\r" + text);
        out.flush();
    }

    /** Begins what is shown in place of the last, where there is a terminal; elsewhere below it. */
    void again(String title) {
        if (!isJson) {
            out.print(Terminal.isOutput() ? "\u001b[H\u001b[2J" : "");
            out.println(heading(title));
        }
    }

    /** A text that stands for success, in colour if there are colours. */
    String good(String text) {
        return styled(text, Style.bold, Style.fg_green);
    }

    /** A text that stands for a failure, in colour if there are colours. */
    String bad(String text) {
        return styled(text, Style.bold, Style.fg_red);
    }

    /** A text that stands above others. */
    String heading(String text) {
        return styled(text, Style.bold);
    }

    private String styled(String text, Style... styles) {
        return colors.ansi().enabled() ? Style.on(styles) + text + Style.reset.on() : text;
    }

    private void print(Object value, int indent) {
        if (value instanceof Fields) {
            printFields((Fields) value, indent);
        } else if (value instanceof Table && ((Table) value).columns().size() <= MOST_COLUMNS) {
            printTable((Table) value, indent);
        } else if (value instanceof List && !((List<?>) value).isEmpty()) {
            String separator = null;
            for (Object element : (List<?>) value) {
                if (separator != null && element instanceof Fields) {
                    out.println(separator);
                }
                separator = "";
                print(element, indent);
            }
        } else if (value instanceof String && ((String) value).indexOf('\n') >= 0) {
            ((String) value).lines().forEach(line -> out.println(" ".repeat(indent) + text(line)));
        } else {
            out.println(" ".repeat(indent) + text(value));
        }
    }

    /** In their order: values of a line side by side with their names, others under them. */
    private void printFields(Fields fields, int indent) {
        List<List<String>> lines = new ArrayList<>();
        boolean isFirst = true;
        for (Map.Entry<String, Object> entry : fields.entrySet()) {
            String label = fields.label(entry.getKey());
            if (isLine(entry.getValue())) {
                lines.add(List.of(label, text(entry.getValue())));
                continue;
            }
            isFirst = printLines(lines, isFirst, indent);
            if (!isFirst) {
                out.println();
            }
            isFirst = false;
            out.println(" ".repeat(indent) + heading(label));
            print(entry.getValue(), indent + INDENT);
        }
        printLines(lines, isFirst, indent);
    }

    private boolean printLines(List<List<String>> lines, boolean areFirst, int indent) {
        if (lines.isEmpty()) {
            return areFirst;
        } else if (!areFirst) {
            out.println();
        }
        printRows(List.of("", ""), lines, indent);
        lines.clear();
        return false;
    }

    private void printTable(Table table, int indent) {
        if (table.isEmpty()) {
            out.println(" ".repeat(indent) + "(none)");
            return;
        }
        List<String> columns = table.columns();
        List<List<String>> rows = new ArrayList<>();
        rows.add(columns.stream().map(table::title).collect(Collectors.toList()));
        for (Fields row : table) {
            rows.add(columns.stream().map(name -> text(row.get(name))).collect(Collectors.toList()));
        }
        printRows(rows.get(0), rows, indent);
    }

    private static boolean isLine(Object value) {
        return !(value instanceof Fields || value instanceof Table
                || value instanceof List && ((List<?>) value).stream().anyMatch(element -> !isLine(element))
                || value instanceof String && ((String) value).indexOf('\n') >= 0);
    }

    /** One line; without what would make a terminal do anything else than show it. */
    private static String text(Object value) {
        if (value instanceof Boolean) {
            return (Boolean) value ? "yes" : "no";
        } else if (value instanceof List) {
            return ((List<?>) value).isEmpty() ? "(none)"
                    : ((List<?>) value).stream().map(Output::text).collect(Collectors.joining(", "));
        } else if (value instanceof Fields) {
            return ((Fields) value).entrySet().stream().map(entry -> entry.getKey() + "=" + text(entry.getValue()))
                    .collect(Collectors.joining(", "));
        } else if (value instanceof Double && (Double) value == ((Double) value).longValue()) {
            return String.valueOf(((Double) value).longValue());
        }
        return value == null || value.equals("") ? "-" : value.toString().replaceAll("\\p{Cntrl}", "?");
    }

    /**
     * Prints a table within the terminal's width: what is too long goes on in the next line of its column.
     *
     * @param titles one per column
     * @param rows the texts of each row
     */
    void table(List<String> titles, List<List<String>> rows) {
        List<List<String>> all = new ArrayList<>(rows);
        all.add(0, titles);
        printRows(titles, all, 0);
    }

    /** The titles only say what the columns are; to be printed they have to be among the rows. */
    private void printRows(List<String> titles, List<List<String>> rows, int indent) {
        int[] widths = new int[titles.size()];
        for (List<String> row : rows) {
            for (int i = 0; i < widths.length; ++i) {
                widths[i] = Math.max(widths[i], row.get(i).length());
            }
        }
        int[] least = titles.stream().mapToInt(title -> Arrays.stream(title.split(" ")).mapToInt(String::length).max()
                .orElse(0)).toArray();
        shrink(widths, least, Terminal.width(Integer.MAX_VALUE) - indent - GAP * (widths.length - 1));
        rows.forEach(row -> printRow(titles, row, widths, indent));
    }

    /** Takes from the widest columns what is too much, but leaves room for the words of the titles. */
    private static void shrink(int[] widths, int[] least, int available) {
        while (Arrays.stream(widths).asLongStream().sum() > available) {
            int widest = -1;
            for (int i = 0; i < widths.length; ++i) {
                boolean canShrink = widths[i] > Math.max(least[i], NARROWEST);
                widest = canShrink && (widest < 0 || widths[i] > widths[widest]) ? i : widest;
            }
            if (widest < 0) {
                return;
            }
            --widths[widest];
        }
    }

    private void printRow(List<String> titles, List<String> texts, int[] widths, int indent) {
        String[] rest = texts.toArray(new String[0]);
        while (Arrays.stream(rest).anyMatch(text -> !text.isEmpty())) {
            StringBuilder line = new StringBuilder();
            int blanks = indent;
            for (int i = 0; i < rest.length; ++i) {
                int end = end(rest[i], widths[i]);
                String part = rest[i].substring(0, end);
                String title = i > 0 && titles.get(i).isEmpty() ? texts.get(0) : titles.get(i);
                line.append(" ".repeat(blanks)).append(title.matches("(?i)ok|state") ? judged(part) : part);
                rest[i] = rest[i].substring(end).stripLeading();
                blanks = widths[i] - end + GAP;
            }
            out.println(line.toString().stripTrailing());
        }
    }

    /** A text that says how well something is, in the colour of that. */
    private String judged(String text) {
        switch (text) {
            case "OK": return good(text);
            case "WARNING": return styled(text, Style.bold, Style.fg_yellow);
            case "no":
            case "failed":
            case "FAILED": return bad(text);
            default: return text;
        }
    }

    /** Where a text that is too long for its column is divided: between words or parts of a name if possible. */
    private static int end(String text, int width) {
        if (text.length() <= width) {
            return text.length();
        }
        int end = width;
        while (end > 0 && " .(".indexOf(text.charAt(end)) < 0) {
            --end;
        }
        return end > 0 ? end : width;
    }
}
