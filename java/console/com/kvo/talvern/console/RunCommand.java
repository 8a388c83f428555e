package com.kvo.talvern.console;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import picocli.CommandLine;
import picocli.CommandLine.Model.PositionalParamSpec;
import picocli.CommandLine.ParameterException;

/** Runs several commands in one process. */
final class RunCommand extends ConsoleCommand {
    private static final String PROMPT = "talvern> ";

    RunCommand() {
        super("run", "Runs the commands of a file or, without one, those that are typed, a line each, in one process. Words"
                + " are quoted as in a shell, # starts a comment, `exit` or `quit` ends. So does a command that fails, unless"
                + " it is typed on a terminal or has a ! before it, which says that the appliance has to refuse it.");
        spec.addPositional(PositionalParamSpec.builder().paramLabel("FILE").arity("0..1").index("0")
                .type(Path.class).description("The file.").build());
        addFlag("--echo", "Show each command before its result.");
    }

    @Override
    protected int run(Output output) throws Exception {
        Path file = spec.positionalParameters().get(0).getValue();
        if (file == null && Input.isTerminal()) {
            Input.edit();
            return runTyped(output);
        } else if (file == null) {
            return run(Input.lines(), output);
        } else if (!Files.isReadable(file) || Files.isDirectory(file)) {
            throw usageError("The file " + file + " can't be read.");
        }
        try (Lines lines = new Lines(Files.newInputStream(file))) {
            return run(lines, output);
        }
    }

    private int runTyped(Output output) throws IOException {
        for (String line = Input.line(PROMPT); line != null && !isEnd(line); line = Input.line(PROMPT)) {
            execute("", line, output);
        }
        return ExitCode.DONE;
    }

    private int run(Lines lines, Output output) throws IOException {
        int exitCode = ExitCode.DONE;
        try {
            for (String line = lines.next(); line != null && !isEnd(line) && exitCode == ExitCode.DONE; line = lines.next()) {
                exitCode = execute("line " + lines.number() + ": ", line, output);
            }
        } catch (IllegalArgumentException e) {
            throw usageError(e.getMessage());
        }
        return exitCode;
    }

    private static boolean isEnd(String line) {
        return line.strip().matches("exit|quit");
    }

    /** Executes a line. One that is wrong is not repeated: it may be a password that was not asked for. */
    private int execute(String where, String line, Output output) {
        boolean mustFail = line.startsWith("!");
        String command = mustFail ? line.substring(1).strip() : line.strip();
        if (command.isEmpty() || command.startsWith("#")) {
            echo(command.isEmpty() ? "" : output.heading(command.substring(1).strip()), output);
            return ExitCode.DONE;
        }
        CommandLine parent = spec.commandLine();
        int exitCode;
        isJsonForAll = option("--json", false);
        try {
            String[] words = words(command).toArray(new String[0]);
            exitCode = Console.execute(where, () -> echo(PROMPT + command, output), words, parent.getOut(), parent.getErr());
        } catch (ParameterException e) {
            exitCode = Console.explainUsage(where, e);
        } finally {
            isJsonForAll = false;
        }
        parent.getOut().flush();
        parent.getErr().flush();
        if (mustFail) {
            return exitCode == ExitCode.DONE ? Console.fail(parent.getErr(), where + "This was to fail.", ExitCode.REFUSED)
                    : exitCode == ExitCode.REFUSED || exitCode == ExitCode.MISMATCH ? ExitCode.DONE : exitCode;
        }
        return exitCode;
    }

    private void echo(String text, Output output) {
        if (option("--echo", false)) {
            output.line(text);
            output.flush();
        }
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
            throw usageError("A quote is not closed.");
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
