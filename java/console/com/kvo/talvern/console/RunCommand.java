package com.kvo.talvern.console;

import java.io.BufferedReader;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import picocli.CommandLine;
import picocli.CommandLine.Model.PositionalParamSpec;
import picocli.CommandLine.ParameterException;

/** Runs several commands in one process, as long as which the simulated appliance keeps what it was told. */
final class RunCommand extends ConsoleCommand {
    private static final String PROMPT = "talvern> ";

    RunCommand() {
        super("run", "Runs the commands of a file or, without one, those that are typed, a line each, in one process: what"
                + " one changes on the simulated appliance is there for the next. Words are quoted as in a shell, # starts"
                + " a comment. It ends at a command that fails, unless that is typed on a terminal or has a ! before it,"
                + " which says that it has to fail.");
        spec.addPositional(PositionalParamSpec.builder().paramLabel("FILE").arity("0..1").index("0")
                .type(Path.class).description("The file.").build());
        addFlag("--echo", "Show each command before its result.");
    }

    @Override
    protected int run(Output output) throws Exception {
        Path file = spec.positionalParameters().get(0).getValue();
        if (file == null) {
            return run(() -> Input.line(PROMPT), output);
        }
        if (!Files.isReadable(file) || Files.isDirectory(file)) {
            throw usageError("The file " + file + " can't be read.");
        }
        try (BufferedReader reader = Files.newBufferedReader(file, StandardCharsets.UTF_8)) {
            return run(reader::readLine, output);
        }
    }

    private interface Lines {
        String next() throws IOException;
    }

    private int run(Lines lines, Output output) throws IOException {
        boolean isTyped = spec.positionalParameters().get(0).getValue() == null && Input.isTerminal();
        int exitCode = ExitCode.DONE;
        for (String line = lines.next(); line != null && (isTyped || exitCode == ExitCode.DONE); line = lines.next()) {
            boolean mustFail = line.startsWith("!");
            String command = mustFail ? line.substring(1).strip() : line.strip();
            if (isTyped && command.matches("exit|quit")) {
                return ExitCode.DONE;
            } else if (command.isEmpty() || command.startsWith("#")) {
                echo(command.isEmpty() ? "" : output.heading(command.substring(1).strip()), output);
                continue;
            }
            echo(PROMPT + command, output);
            exitCode = execute(command);
            if (mustFail) {
                Refusal.unless(exitCode != ExitCode.DONE, "This was to fail: " + command);
                exitCode = ExitCode.DONE;
            }
        }
        return isTyped ? ExitCode.DONE : exitCode;
    }

    private void echo(String text, Output output) {
        if (option("--echo", false)) {
            output.line(text);
            output.flush();
        }
    }

    private int execute(String line) {
        CommandLine parent = spec.commandLine();
        int exitCode;
        isJsonForAll = option("--json", false);
        try {
            String[] words = words(line).toArray(new String[0]);
            exitCode = Console.commandLine(words).setOut(parent.getOut()).setErr(parent.getErr()).execute(words);
        } catch (ParameterException e) {
            exitCode = Console.explainUsage(e);
        } finally {
            isJsonForAll = false;
        }
        parent.getOut().flush();
        parent.getErr().flush();
        return exitCode;
    }

    /** The words of a line: quotes of both kinds keep blanks, and a backslash keeps the next character. */
    private List<String> words(String line) {
        List<String> words = new ArrayList<>();
        StringBuilder word = null;
        char quote = 0;
        for (int i = 0; i < line.length(); ++i) {
            char c = line.charAt(i);
            if (quote == 0 && Character.isWhitespace(c)) {
                if (word != null) {
                    words.add(word.toString());
                }
                word = null;
                continue;
            }
            word = word == null ? new StringBuilder() : word;
            if (c == quote) {
                quote = 0;
            } else if (quote == 0 && (c == '"' || c == '\'')) {
                quote = c;
            } else if (c == '\\' && quote != '\'' && i + 1 < line.length()) {
                word.append(line.charAt(++i));
            } else {
                word.append(c);
            }
        }
        if (quote != 0) {
            throw usageError("A quote is not closed: " + line);
        }
        if (word != null) {
            words.add(word.toString());
        }
        if (words.get(0).equals("run")) {
            throw usageError("`run` can't run itself.");
        }
        return words;
    }
}
