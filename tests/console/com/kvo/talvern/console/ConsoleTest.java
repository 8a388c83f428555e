package com.kvo.talvern.console;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.fasterxml.jackson.core.JsonFactory;
import com.fasterxml.jackson.core.JsonParser;
import com.fasterxml.jackson.core.JsonToken;
import java.io.IOException;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.util.Arrays;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;
import org.junit.Test;

/** The console's command lines in this process, and the forms of its output. */
public class ConsoleTest {
    private static final String OTHER_JAR = System.getProperty("talvern.build") + "/asm.jar";

    private final StringWriter out = new StringWriter();
    private final StringWriter err = new StringWriter();

    private int run(String... arguments) {
        out.getBuffer().setLength(0);
        err.getBuffer().setLength(0);
        return Console.commandLine(arguments).setOut(new PrintWriter(out)).setErr(new PrintWriter(err)).execute(arguments);
    }

    @Test
    public void wrongCommandLinesGiveOneLine() {
        String[] commands = {"", "chekc", "--bogus", "check --bogus", "check too many", "check --jar", "check --jar /nowhere",
            "check --bridge /", "check --platform /nowhere --json"};
        for (String command : commands) {
            assertEquals(command, ExitCode.USAGE, run(command.isEmpty() ? new String[0] : command.split(" ")));
            assertEquals(command, "", out.toString());
            assertTrue(err.toString(), err.toString().matches("talvern-console: .*[.] See `talvern-console.* --help`[.]\n"));
        }
    }

    @Test
    public void helpNamesAllCommands() {
        assertEquals(ExitCode.DONE, run("--help"));
        assertTrue(out.toString().contains("check") && out.toString().contains("completion"));
        assertEquals(ExitCode.DONE, run("check", "--help"));
        assertTrue(out.toString().contains("--platform"));
    }

    @Test
    public void differencesAreATableOrJson() throws IOException {
        assertEquals(ExitCode.MISMATCH, run("check", "--jar", OTHER_JAR));
        assertTrue(out.toString().contains("\njar  class          com.kvo.talvern.TalvernException "));
        assertEquals(ExitCode.MISMATCH, run("check", "--jar", OTHER_JAR, "--json"));
        assertEquals(Set.of("fits", "jars", "bridge", "platforms", "natives", "members", "operations", "findings", "party",
                "kind", "name", "symbol", "problem"), fieldNames(out.toString()));
    }

    @Test
    public void jsonHoldsEveryKindOfValue() throws IOException {
        Map<String, Object> value = new LinkedHashMap<>();
        value.put("text", "\"\u00fc\n");
        value.put("list", Arrays.asList(1, 2L, 0.5, true, null));
        Json.write(out, value);
        assertEquals("{\n  \"text\" : \"\\\"\u00fc\\n\",\n  \"list\" : [ 1, 2, 0.5, true, null ]\n}\n", out.toString());
    }

    @Test
    public void tablesStayWithinTheTerminal() {
        String name = "com.kvo.talvern.config.ConfigChangeException(int, java.lang.String, java.lang.String[])";
        List<List<String>> rows = List.of(List.of("jar", name, "", "missing"), List.of("a", "b", "c", "d"));
        for (int width : new int[] {50, 80, 300}) {
            System.setProperty(Terminal.COLUMNS, String.valueOf(width));
            out.getBuffer().setLength(0);
            new Output(new PrintWriter(out), Terminal.colors(), false).table(List.of("IN", "NAME", "X", "PROBLEM"), rows);
            System.clearProperty(Terminal.COLUMNS);
            List<String> lines = out.toString().lines().collect(Collectors.toList());
            assertTrue(out.toString(), lines.stream().allMatch(line -> line.length() <= width));
            String shown = lines.subList(1, lines.size() - 1).stream().collect(Collectors.joining());
            assertEquals(("jar" + name + "missing").chars().sorted().boxed().filter(c -> c != ' ').collect(Collectors.toList()),
                    shown.chars().sorted().boxed().filter(c -> c != ' ').collect(Collectors.toList()));
        }
    }

    @Test
    public void coloursAreForTerminalsOnly() {
        assertFalse(new Output(new PrintWriter(out), Terminal.colors(), false).bad("x").contains("\u001b"));
        System.setProperty(Terminal.COLUMNS, "80");
        boolean isUnwanted = System.getenv("NO_COLOR") != null;
        assertEquals(!isUnwanted, new Output(new PrintWriter(out), Terminal.colors(), false).bad("x").contains("\u001b"));
        System.clearProperty(Terminal.COLUMNS);
    }

    private static Set<String> fieldNames(String json) throws IOException {
        Set<String> names = new LinkedHashSet<>();
        try (JsonParser parser = new JsonFactory().createParser(json)) {
            for (JsonToken token = parser.nextToken(); token != null; token = parser.nextToken()) {
                if (token == JsonToken.FIELD_NAME) {
                    names.add(parser.currentName());
                }
            }
        }
        return names;
    }
}
