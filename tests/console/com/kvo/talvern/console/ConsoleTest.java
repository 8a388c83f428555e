package com.kvo.talvern.console;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.kvo.talvern.firmwaremanager.UpgradeCode;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.After;
import org.junit.Test;

/** The forms of the console's output. */
public class ConsoleTest {
    private final StringWriter out = new StringWriter();

    /** Output to a terminal of this width, or to none. */
    private Output output(int width) {
        out.getBuffer().setLength(0);
        if (width > 0) {
            System.setProperty(Terminal.COLUMNS, String.valueOf(width));
        }
        return new Output(new PrintWriter(out), Terminal.colors(), false);
    }

    @After
    public void forgetTheTerminal() {
        System.clearProperty(Terminal.COLUMNS);
    }

    @Test
    public void tablesStayWithinTheTerminal() {
        String name = "com.kvo.talvern.config.ConfigChangeException(int, java.lang.String, java.lang.String[])";
        List<List<String>> rows = List.of(List.of("jar", name, "", "missing"), List.of("a", "b", "c", "d"));
        for (int width : new int[] {50, 80, 300}) {
            output(width).table(List.of("IN", "NAME", "X", "PROBLEM"), rows);
            List<String> lines = out.toString().lines().collect(Collectors.toList());
            assertTrue(out.toString(), lines.stream().allMatch(line -> line.length() <= width));
            String shown = lines.subList(1, lines.size() - 1).stream().collect(Collectors.joining());
            assertEquals(letters("jar" + name + "missing"), letters(shown));
        }
    }

    private static String letters(String text) {
        return text.replace(" ", "").chars().sorted().mapToObj(Character::toString).collect(Collectors.joining());
    }

    @Test
    public void progressIsABarOnATerminalOnly() throws Exception {
        for (int width : new int[] {0, 30, 80}) {
            Output output = output(width);
            Progress progress = new Progress(output);
            progress.progress(0, 0, UpgradeCode.VERIFYING);
            progress.progress(5, 10, UpgradeCode.VERIFYING);
            progress.progress(Integer.MAX_VALUE, Integer.MAX_VALUE, UpgradeCode.FINISHED);
            progress.awaitEnd();
            output.flush();
            if (width == 0) {
                assertEquals("  0 %  verifying\n100 %  finished\n", out.toString());
            } else {
                String[] bars = out.toString().split("\r");
                assertTrue(bars[2], bars[2].length() < width && bars[2].contains("#."));
                assertTrue(bars[3], bars[3].length() < width + 1 && bars[3].contains("##]"));
            }
        }
    }
}
