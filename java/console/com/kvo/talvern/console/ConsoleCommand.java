package com.kvo.talvern.console;

import java.util.concurrent.Callable;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;
import picocli.CommandLine.ParameterException;

/**
 * What all commands have in common: help, and a result as text or JSON. Commands describe themselves by calls:
 * annotations would double the time that the console needs to start.
 */
abstract class ConsoleCommand implements Callable<Integer> {
    /** Whether all commands print JSON, asked or not. */
    protected static boolean isJsonForAll;

    /** The command's description, to which its constructor adds options, parameters and subcommands. */
    protected final CommandSpec spec;

    /**
     * @param name the word that it is called by
     * @param description for its help, in sentences
     */
    protected ConsoleCommand(String name, String description) {
        spec = CommandSpec.wrapWithoutInspection(this).name(name);
        spec.usageMessage().description(description.split("(?<=[.]) ", 2)); // a list of commands shows the first sentence
        spec.addOption(OptionSpec.builder("-h", "--help").usageHelp(true).description("Show this help.").build());
        addFlag("--json", "Print the result as JSON.");
    }

    /**
     * Does the command's work. Exceptions are told to the user as what they are: a
     * {@link com.kvo.talvern.TalvernException} as a refusal, a {@link #usageError} as a wrong command line.
     *
     * @param output takes the result
     * @return an {@link ExitCode}
     */
    protected abstract int run(Output output) throws Exception;

    /** Adds an option that is given or not; its value is a {@code Boolean}. */
    protected final void addFlag(String name, String description) {
        spec.addOption(OptionSpec.builder(name).type(boolean.class).description(description).build());
    }

    /** The value that the user gave to an option; without one `otherwise`. */
    protected final <T> T option(String name, T otherwise) {
        T value = spec.findOption(name).getValue();
        return value == null ? otherwise : value;
    }

    /** A wrong command line, to be thrown. */
    protected final ParameterException usageError(String message) {
        return new ParameterException(spec.commandLine(), message);
    }

    @Override
    public final Integer call() throws Exception {
        boolean isJson = isJsonForAll || option("--json", false);
        return run(new Output(spec.commandLine().getOut(), spec.commandLine().getColorScheme(), isJson));
    }
}
