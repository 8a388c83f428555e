package com.kvo.talvern.console;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.ConfigChangeException;
import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.PrintWriter;
import java.nio.charset.StandardCharsets;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.function.Supplier;
import java.util.stream.Collectors;
import picocli.CommandLine;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;
import picocli.CommandLine.ParameterException;
import picocli.CommandLine.UnmatchedArgumentException;

/** The command line over the API. */
public final class Console implements Runnable {
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
        COMMANDS.put("call", () -> CallCommand.create().spec);
        COMMANDS.put("run", () -> new RunCommand().spec);
        COMMANDS.put("check", () -> new CheckCommand().spec);
        COMMANDS.put("completion", () -> new CompletionCommand().spec);
    }

    private final CommandSpec spec = CommandSpec.wrapWithoutInspection(this).name("talvern-console");

    private Console() {
        spec.usageMessage().description("Manages an appliance, and checks an installation.");
        spec.addOption(OptionSpec.builder("-h", "--help").usageHelp(true).description("Show this help.").build());
        spec.addOption(OptionSpec.builder("-V", "--version").versionHelp(true).description("Show the version.").build());
        spec.version("talvern-console " + Console.class.getPackage().getImplementationVersion());
    }

    /**
     * @param arguments the command line
     */
    public static void main(String[] arguments) {
        PrintWriter out = writer(FileDescriptor.out);
        PrintWriter err = writer(FileDescriptor.err);
        int exitCode = execute(arguments, out, err);
        out.flush();
        err.flush();
        System.exit(exitCode);
    }

    /** Does what a command line says; the exit code. */
    static int execute(String[] arguments, PrintWriter out, PrintWriter err) {
        try {
            return commandLine(arguments).setOut(out).setErr(err).execute(arguments);
        } catch (LinkageError e) {
            return fail(err, e.getMessage(), ExitCode.NOT_LOADED);
        }
    }

    /** What reads any command line. */
    static CommandLine complete() {
        CommandSpec spec = new Console().spec;
        COMMANDS.forEach((name, command) -> add(spec, name, command.get(), List.of()));
        return commandLine(spec);
    }

    /** What reads these arguments: made ready for the command that they name, or else for help on all. */
    static CommandLine commandLine(String... arguments) {
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
                .setCaseInsensitiveEnumValuesAllowed(true)
                .setParameterExceptionHandler((e, given) -> explainUsage(e))
                .setExecutionExceptionHandler((e, command, parsed) -> explain(e, command.getErr()));
    }

    @Override
    public void run() {
        throw new ParameterException(spec.commandLine(), "A command is missing.");
    }

    /** Says what is wrong with a command line. */
    static int explainUsage(ParameterException e) {
        CommandLine command = e.getCommandLine();
        String message = e.getMessage();
        if (e instanceof UnmatchedArgumentException) {
            // Not picocli's message, which repeats all the rest, among which there may be a password.
            Object user = command.getCommand();
            boolean mayBePassword = user instanceof ActionCommand && ((ActionCommand) user).takesPassword();
            message = mayBePassword ? "There are too many arguments; passwords are asked for."
                    : "'" + ((UnmatchedArgumentException) e).getUnmatched().get(0) + "' is not understood.";
        }
        return fail(command.getErr(), message.replaceFirst("[.]?$", ". See `") + command.getCommandSpec().qualifiedName()
                + " --help`.", ExitCode.USAGE);
    }

    private static int explain(Exception e, PrintWriter err) {
        String kind = e instanceof TalvernException || e instanceof Refusal ? "" : e.getClass().getSimpleName() + ": ";
        String details = e instanceof ConfigChangeException ? ((ConfigChangeException) e).getDetails().stream()
                .collect(Collectors.joining(", ", " (", ")")) : "";
        return fail(err, kind + e.getMessage() + details, ExitCode.REFUSED);
    }

    private static int fail(PrintWriter err, String message, int exitCode) {
        err.println("talvern-console: " + message.replaceAll("\\p{Cntrl}+", " "));
        return exitCode;
    }

    private static PrintWriter writer(FileDescriptor descriptor) {
        return new PrintWriter(new FileOutputStream(descriptor), false, StandardCharsets.UTF_8);
    }
}
