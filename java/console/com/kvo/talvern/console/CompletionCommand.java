package com.kvo.talvern.console;

import picocli.AutoComplete;

/** What a bash needs to complete the console's commands and options. */
final class CompletionCommand extends ConsoleCommand {
    CompletionCommand() {
        super("completion", "Prints a script that makes bash complete the commands: `source <(talvern-console"
                + " completion)`.");
    }

    @Override
    protected int run(Output output) throws Exception {
        String script = AutoComplete.bash("talvern-console", Console.complete());
        output.result(script, () -> output.line(script));
        return ExitCode.DONE;
    }
}
