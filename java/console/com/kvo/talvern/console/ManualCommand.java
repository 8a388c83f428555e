package com.kvo.talvern.console;

import java.util.Map;
import picocli.CommandLine;
import picocli.CommandLine.Help;
import picocli.CommandLine.Model.ArgSpec;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;

/** The manual page, made of what the commands say about themselves. For the build, not for users. */
final class ManualCommand extends ConsoleCommand {
    private final StringBuilder page = new StringBuilder();

    ManualCommand() {
        super("manual", "Prints the manual page.");
        spec.usageMessage().hidden(true);
    }

    @Override
    protected int run(Output output) throws Exception {
        CommandLine console = Console.complete();
        CommandSpec all = console.getCommandSpec();
        page.append(".TH TALVERN-CONSOLE 1 \"\" \"").append(all.version()[0]).append("\" \"User Commands\"\n");
        section("NAME", "talvern-console - manage a Talvern appliance");
        section("SYNOPSIS", all.name() + " COMMAND [ARGUMENT...]");
        section("DESCRIPTION", String.join("\n", all.usageMessage().description()));
        page.append(".SH OPTIONS\n");
        entry("--json", "Print the result as JSON. Every command that shows something takes it.");
        all.options().forEach(this::argument);
        page.append(".SH COMMANDS\n");
        commands(console);
        page.append(".SH \"EXIT STATUS\"\n");
        all.usageMessage().exitCodeList().forEach(this::entry);
        page.append(".SH ENVIRONMENT\n");
        Console.ENVIRONMENT.forEach(this::entry);
        output.result(page.toString(), () -> output.line(page.toString().stripTrailing()));
        return ExitCode.DONE;
    }

    private void commands(CommandLine parent) {
        for (Map.Entry<String, CommandLine> entry : parent.getSubcommands().entrySet()) {
            CommandLine command = entry.getValue();
            CommandSpec spec = command.getCommandSpec();
            if (spec.usageMessage().hidden()) {
                continue;
            } else if (!command.getSubcommands().isEmpty()) {
                commands(command);
                continue;
            }
            String words = spec.qualifiedName().substring("talvern-console ".length());
            String synopsis = new Help(spec, Help.defaultColorScheme(Help.Ansi.OFF)).detailedSynopsis(0, null, false);
            String arguments = synopsis.replaceAll("\\s+", " ").strip().substring(spec.qualifiedName().length())
                    .replaceFirst("\\[-h] |\\[-h]$", "").replaceFirst("\\[--json] ?", "");
            String title = escaped((words + arguments).stripTrailing()).replace("\"", "\\(dq");
            page.append(".SS \"").append(title).append("\"\n");
            page.append(escaped(String.join(" ", spec.usageMessage().description()))).append('\n');
            spec.positionalParameters().forEach(this::argument);
            spec.options().forEach(this::argument);
        }
    }

    private void argument(ArgSpec argument) {
        String names = argument.isOption() ? String.join(", ", ((OptionSpec) argument).names()) : argument.paramLabel();
        boolean hasValue = argument.isOption() && argument.arity().max() > 0;
        if (!names.matches("--json|-h, --help") || argument.command().parent() == null) {
            entry(hasValue ? names + "=" + argument.paramLabel() : names, String.join(" ", argument.description()));
        }
    }

    private void section(String title, String text) {
        page.append(".SH ").append(title).append('\n').append(escaped(text)).append('\n');
    }

    private void entry(String term, String text) {
        page.append(".TP\n\\fB").append(escaped(term)).append("\\fR\n").append(escaped(text)).append('\n');
    }

    private static String escaped(String text) {
        return text.replace("\\", "\\e").replace("-", "\\-").replaceAll("(?m)^(?=[.'])", "\\\\&");
    }
}
