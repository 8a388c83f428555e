package com.kvo.talvern.console;

import java.io.IOException;
import java.util.List;
import java.util.function.Consumer;
import java.util.stream.Stream;
import picocli.CommandLine.Model.OptionSpec;
import picocli.CommandLine.Model.PositionalParamSpec;

/** A command that does one thing and shows the fields that come of it. */
final class ActionCommand extends ConsoleCommand {
    /** What a command without a result shows. */
    static final Fields DONE = new Fields().and("done", true);

    private final Action action;
    private Output output;
    private boolean takesPassword;
    private String question;
    private int exitCode = ExitCode.DONE;
    private Iterable<String> candidates;
    private Consumer<ActionCommand> check = command -> {};

    /** What a command does. */
    interface Action {
        /**
         * @param command gives the arguments
         * @return what came of it; null if that is shown already
         */
        Fields run(ActionCommand command) throws Exception;
    }

    /** What a command without a result does. */
    interface Change {
        void run(ActionCommand command) throws Exception;
    }

    ActionCommand(String name, String description, Action action) {
        super(name, description);
        this.action = action;
    }

    /** Adds a parameter that has to be given. */
    ActionCommand parameter(String label, String description) {
        return parameter(label, "1", String.class, description);
    }

    /** Adds a parameter that has to be given and is a number. */
    ActionCommand number(String label, String description) {
        return parameter(label, "1", Integer.class, description);
    }

    /** Adds a parameter that may be left out. */
    ActionCommand optional(String label, String description) {
        return parameter(label, "0..1", String.class, description);
    }

    /** Adds a last parameter that may be repeated; arity is "0..*" or "1..*". */
    ActionCommand list(String label, String arity, String description) {
        return parameter(label, arity, List.class, description);
    }

    private ActionCommand parameter(String label, String arity, Class<?> type, String description) {
        int index = spec.positionalParameters().size();
        PositionalParamSpec.Builder parameter = PositionalParamSpec.builder().paramLabel(label).arity(arity).type(type)
                .required(!arity.startsWith("0"))
                .index(type == List.class ? index + "..*" : String.valueOf(index)).description(description);
        if (type == List.class) {
            parameter.auxiliaryTypes(String.class);
        }
        if (candidates != null) {
            parameter.completionCandidates(candidates);
            candidates = null;
        }
        spec.addPositional(parameter.build());
        return this;
    }

    /** Lets a shell complete the next parameter. */
    ActionCommand completedBy(Iterable<String> words) {
        candidates = words;
        return this;
    }

    /** Adds an option that has a value. */
    ActionCommand option(String name, String label, Class<?> type, String description) {
        spec.addOption(OptionSpec.builder(name).paramLabel(label).type(type).description(description).build());
        return this;
    }

    /** Adds an option without a value. */
    ActionCommand flag(String name, String description) {
        addFlag(name, description);
        return this;
    }

    /** Makes the command ask before it does anything that can't be undone. */
    ActionCommand confirmed(String what) {
        question = what;
        return flag("--yes", "Don't ask whether to go on.");
    }

    /** Lets more be asked of the arguments than that they are there: whatever throws a {@link #usageError}. */
    ActionCommand checkedBy(Consumer<ActionCommand> howToCheck) {
        check = howToCheck;
        return this;
    }

    /** Tells a wrong command line, before anything is done. */
    void check() {
        check.accept(this);
    }

    /** Makes sure that nothing shows what was typed as a password by mistake. */
    ActionCommand secret() {
        takesPassword = true;
        return this;
    }

    /** Whether the command asks for a password. */
    boolean takesPassword() {
        return takesPassword;
    }

    /** The text of a parameter; null if it was not given. */
    String text(String label) {
        return value(label);
    }

    /** The number of a parameter. */
    int number(String label) {
        return value(label);
    }

    /** The texts of a parameter that may be repeated. */
    List<String> list(String label) {
        List<String> texts = value(label);
        return texts == null ? List.of() : texts;
    }

    private <T> T value(String label) {
        Stream<PositionalParamSpec> parameters = spec.positionalParameters().stream();
        return parameters.filter(parameter -> parameter.paramLabel().equals(label)).findFirst().orElseThrow().getValue();
    }

    /** Whether an option without a value was given. */
    boolean isSet(String flag) {
        return option(flag, false);
    }

    /** Asks for a password, or takes it from the standard input. */
    String password(String user, boolean isNew) throws IOException {
        output.flush();
        String password;
        try {
            password = Input.password(user, isNew);
        } catch (IllegalArgumentException e) {
            throw usageError(e.getMessage());
        }
        if (password == null || password.isEmpty()) {
            throw usageError("No password was given on the standard input.");
        }
        return password;
    }

    /** Asks whether to go on, if there is somebody to be asked and there was no --yes. */
    void confirm(String what) throws IOException {
        if (isSet("--yes")) {
            return;
        }
        if (!Input.isTerminal()) {
            throw usageError(what + " Give --yes to go on without being asked.");
        }
        output.flush();
        String answer = Input.line(what + " Go on? [y/N] ");
        Refusal.unless(answer != null && answer.strip().matches("(?i)y(es)?"), "Given up.");
    }

    /** Lets the command end with another code than that of success; for what is no failure of the command. */
    void endWith(int code) {
        exitCode = code;
    }

    /** Where the result will be shown; for what has to be shown before. */
    Output output() {
        return output;
    }

    @Override
    protected int run(Output where) throws Exception {
        output = where;
        if (question != null) {
            confirm(question);
        }
        Fields result = action.run(this);
        if (result == DONE) {
            output.result(result, () -> output.line(output.good("Done.")));
        } else if (result != null) {
            output.show(result);
        }
        return exitCode;
    }
}
