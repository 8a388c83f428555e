package com.kvo.talvern.console;

import java.io.PrintWriter;
import java.util.ArrayList;
import java.util.List;
import picocli.CommandLine.Model.PositionalParamSpec;

/** {@code help} in front of a command, for {@code --help} behind it. */
final class HelpCommand extends ConsoleCommand {
    HelpCommand() {
        super("help", "Shows the help of a command, or of all.");
        spec.addPositional(PositionalParamSpec.builder().paramLabel("COMMAND").arity("0..*").index("0..*")
                .type(List.class).auxiliaryTypes(String.class).description("The words of the command.").build());
    }

    @Override
    protected int run(Output output) {
        List<String> given = spec.positionalParameters().get(0).getValue();
        List<String> words = new ArrayList<>(given == null ? List.of() : given);
        words.add("--help");
        PrintWriter out = spec.commandLine().getOut();
        return Console.execute("", () -> {}, words.toArray(new String[0]), out, spec.commandLine().getErr());
    }
}
