package com.kvo.talvern.console;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.ConfigChangeException;
import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.OutputStream;
import java.io.PrintWriter;
import java.nio.charset.StandardCharsets;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.concurrent.Callable;
import java.util.function.Supplier;
import java.util.stream.Collectors;
import picocli.CommandLine;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;
import picocli.CommandLine.ParameterException;
import picocli.CommandLine.ParseResult;
import picocli.CommandLine.RunLast;
import picocli.CommandLine.UnmatchedArgumentException;

/** The command line over the API. */
public final class Console implements Callable<Integer> {
    /** The variables of the environment that the console heeds, and for what. */
    static final Map<String, String> ENVIRONMENT = new LinkedHashMap<>();

    private static final Map<String, Supplier<CommandSpec>> COMMANDS = new LinkedHashMap<>();

    static {
        COMMANDS.put("show", () -> ShowCommand.create().spec);
        COMMANDS.put("config", () -> new ConfigCommands().spec);
        COMMANDS.put("net", () -> new NetCommands().spec);
        COMMANDS.put("users", () -> new UsersCommands().spec);
        COMMANDS.put("capture", () -> new CaptureCommands().spec);
        COMMANDS.put("firmware", () -> new FirmwareCommands().spec);
        COMMANDS.put("services", () -> new ServicesCommands().spec);
        COMMANDS.put("device", () -> new DeviceCommands().spec);
        COMMANDS.put("simulate", () -> new SimulateCommands().spec);
        COMMANDS.put("call", () -> CallCommand.create().spec);
        COMMANDS.put("run", () -> new RunCommand().spec);
        COMMANDS.put("check", () -> new CheckCommand().spec);
        COMMANDS.put("completion", () -> new CompletionCommand().spec);
        COMMANDS.put("help", () -> new HelpCommand().spec);
        COMMANDS.put("manual", () -> new ManualCommand().spec);
        ENVIRONMENT.put("JAVA_HOME", "The folder of the Java runtime; without it the first java of the PATH.");
        ENVIRONMENT.put("LD_LIBRARY_PATH", "Folders in which the platform library is looked for first.");
        ENVIRONMENT.put("TALVERN_APPLIANCE", "The file of the simulated appliance, as --appliance; empty: in memory only.");
        ENVIRONMENT.put("XDG_STATE_HOME", "The folder of talvern/appliance.json; without it ~/.local/state.");
        ENVIRONMENT.put("NO_COLOR", "If it is not empty there are no colours.");
    }

    private final CommandSpec spec = CommandSpec.wrapWithoutInspection(this).name("talvern-console");

    private Console() {
        spec.usageMessage().description("Manages an appliance, and checks an installation.");
        spec.addOption(OptionSpec.builder("-h", "--help").usageHelp(true).description("Show this help.").build());
        spec.addOption(OptionSpec.builder("-V", "--version").versionHelp(true).description("Show the version.").build());
        spec.addOption(OptionSpec.builder("--appliance").paramLabel("FILE|none").type(String.class).description("Keep the"
                + " simulated appliance in this file, or in memory only. Without this option, which stands before the"
                + " command, it is ~/.local/state/talvern/appliance.json.").build());
        spec.usageMessage().exitCodeListHeading("Exit codes:%n").exitCodeList(ExitCode.MEANINGS);
        spec.version("talvern-console " + Console.class.getPackage().getImplementationVersion());
    }

    /**
     * @param arguments the command line
     */
    public static void main(String[] arguments) {
        PrintWriter out = writer(new StandardOutput());
        PrintWriter err = writer(new FileOutputStream(FileDescriptor.err));
        int exitCode = execute(arguments, out, err);
        err.flush();
        System.exit(exitCode);
    }

    /** Does what a command line says; the exit code. */
    static int execute(String[] arguments, PrintWriter out, PrintWriter err) {
        try {
            int damaged = damaged(arguments);
            if (damaged > 0) {
                return fail(err, "Argument " + damaged + " can't be read as UTF-8; is the locale UTF-8 (LC_ALL=C.UTF-8)?",
                        ExitCode.USAGE);
            }
            int exitCode = execute("", () -> {}, arguments, out, err);
            out.flush();
            return exitCode;
        } catch (StandardOutput.Lost e) {
            return fail(err, "The result can't be written: " + e.getMessage() + ".", ExitCode.OUTPUT_LOST);
        }
    }

    /** The number of the first argument that did not arrive as it was given, since it or the locale is not UTF-8; or 0. */
    private static int damaged(String[] arguments) {
        boolean isUtf8 = System.getProperty("sun.jnu.encoding", "").equals("UTF-8");
        for (int i = 0; i < arguments.length; ++i) {
            if (arguments[i].indexOf('\uFFFD') >= 0 || !isUtf8 && arguments[i].chars().anyMatch(c -> c > 0x7f)) {
                return i + 1;
            }
        }
        return 0;
    }

    /**
     * Does what a command line says.
     *
     * @param where stands before what is said of a failure
     * @param beforehand is done when the command line has turned out to be right
     * @return the exit code
     */
    static int execute(String where, Runnable beforehand, String[] arguments, PrintWriter out, PrintWriter err) {
        if (arguments.length > 0 && arguments[0].matches("--appliance(=.*)?")) { // the script takes it from the command line
            return fail(err, where + "--appliance FILE is for the start of the command talvern-console, once.",
                    ExitCode.USAGE);
        }
        try {
            return commandLine(arguments).setOut(out).setErr(err)
                    .setParameterExceptionHandler((e, given) -> explainUsage(where, e))
                    .setExecutionExceptionHandler((e, command, parsed) -> explain(where, e, err))
                    .setExecutionStrategy(parsed -> {
                        verify(parsed);
                        beforehand.run();
                        return new RunLast().execute(parsed);
                    })
                    .execute(arguments);
        } catch (LinkageError e) {
            String message = Objects.requireNonNullElse(e.getMessage(), e.toString());
            if (e instanceof NoClassDefFoundError && message.matches("\\S+")) { // no more than the name of a class
                message = "There is no class " + message.replace('/', '.')
                        + ": a jar beside the console is damaged or of another release. Install it again.";
            }
            return fail(err, where + message, ExitCode.NOT_LOADED);
        }
    }

    /** Tells what picocli finds right: the arguments of commands that check them, and unknown words before --help. */
    private static void verify(ParseResult parsed) {
        ParseResult last = parsed;
        while (last.hasSubcommand()) {
            last = last.subcommand();
        }
        CommandSpec command = last.commandSpec();
        if (!last.unmatched().isEmpty()) {
            throw new UnmatchedArgumentException(command.commandLine(), last.unmatched());
        } else if (command.userObject() instanceof ActionCommand && !last.isUsageHelpRequested()) {
            ((ActionCommand) command.userObject()).check();
        }
    }

    /** What reads any command line. */
    static CommandLine complete() {
        CommandSpec spec = new Console().spec;
        COMMANDS.forEach((name, command) -> add(spec, name, command.get(), List.of()));
        return commandLine(spec);
    }

    /** What reads these arguments: made ready for the command that they name, or else for help on all. */
    private static CommandLine commandLine(String... arguments) {
        CommandSpec spec = new Console().spec;
        List<String> words = List.of(arguments);
        Supplier<CommandSpec> command = words.isEmpty() ? null : COMMANDS.get(words.get(0));
        if (command != null) {
            add(spec, words.get(0), command.get(), words.subList(1, words.size()));
        } else if (!words.equals(List.of("--version"))) {
            COMMANDS.forEach((name, other) -> spec.addSubcommand(name, other.get()));
        }
        return commandLine(spec);
    }

    private static void add(CommandSpec spec, String name, CommandSpec command, List<String> words) {
        if (command.userObject() instanceof Group) {
            ((Group) command.userObject()).prepare(words);
        }
        spec.addSubcommand(name, command);
    }

    private static CommandLine commandLine(CommandSpec spec) {
        return new CommandLine(spec)
                .setColorScheme(Terminal.colors())
                .setUsageHelpWidth(Math.max(Terminal.width(80), 55))
                .setExpandAtFiles(false)
                .setCaseInsensitiveEnumValuesAllowed(true);
    }

    @Override
    public Integer call() {
        return showUsage(spec);
    }

    /** Answers a command line that ends before a command with the usage. */
    static int showUsage(CommandSpec spec) {
        spec.commandLine().usage(spec.commandLine().getErr());
        return ExitCode.USAGE;
    }

    /** Says what is wrong with a command line, but not what follows a word that is not understood: it may be a password. */
    static int explainUsage(String where, ParameterException e) {
        CommandLine command = e.getCommandLine();
        String message = e.getMessage();
        if (e instanceof UnmatchedArgumentException) {
            String word = ((UnmatchedArgumentException) e).getUnmatched().get(0).replaceFirst("=.*", "");
            Object user = command.getCommand();
            if (user instanceof ActionCommand && ((ActionCommand) user).takesPassword()) {
                message = "There are too many arguments; passwords are asked for.";
            } else if (word.startsWith("-") || command.getSubcommands().isEmpty()) {
                message = "'" + word + "' is not understood"
                        + Nearest.hint(word, command.getCommandSpec().optionsMap().keySet());
            } else {
                message = "There is no such command" + Nearest.hint(word, command.getSubcommands().keySet());
            }
        }
        return fail(command.getErr(), where + message + (message.matches("(?s).*[.?]") ? "" : ".") + " See `"
                + command.getCommandSpec().qualifiedName() + " --help`.", ExitCode.USAGE);
    }

    private static int explain(String where, Exception e, PrintWriter err) {
        String kind = e instanceof TalvernException || e instanceof Refusal ? "" : e.getClass().getSimpleName() + ": ";
        String details = e instanceof ConfigChangeException ? ((ConfigChangeException) e).getDetails().stream()
                .collect(Collectors.joining(", ", " (", ")")) : "";
        return fail(err, where + kind + e.getMessage() + details, ExitCode.REFUSED);
    }

    /** Says why it failed. */
    static int fail(PrintWriter err, String message, int exitCode) {
        err.println("talvern-console: " + message.replaceAll("\\p{Cntrl}+", " "));
        return exitCode;
    }

    private static PrintWriter writer(OutputStream stream) {
        return new PrintWriter(stream, false, StandardCharsets.UTF_8);
    }
}
