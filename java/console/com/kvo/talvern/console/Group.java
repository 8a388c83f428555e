package com.kvo.talvern.console;

import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.Callable;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;

/** Commands on one subject. */
class Group implements Callable<Integer> {
    /** The description, with the subcommands. */
    final CommandSpec spec;

    private final Map<String, CommandSpec> commands = new LinkedHashMap<>();

    /**
     * @param name the word before the commands
     * @param description for the help, in sentences
     */
    Group(String name, String description) {
        spec = CommandSpec.wrapWithoutInspection(this).name(name);
        spec.usageMessage().description(description.split("(?<=[.]) ", 2));
        spec.addOption(OptionSpec.builder("-h", "--help").usageHelp(true).description("Show this help.").build());
    }

    /** Adds the group's commands. */
    void addCommands() {}

    /**
     * Makes ready the command that the words name, or all if they name none: each takes its time.
     *
     * @param words what follows the group's name on the command line
     */
    final void prepare(List<String> words) {
        addCommands();
        String first = words.isEmpty() ? "" : words.get(0);
        commands.forEach((name, command) -> {
            if (name.equals(first) || !commands.containsKey(first)) {
                if (command.userObject() instanceof Group) {
                    ((Group) command.userObject()).prepare(words.isEmpty() ? words : words.subList(1, words.size()));
                }
                spec.addSubcommand(name, command);
            }
        });
    }

    /** Adds a command that shows something. */
    final ActionCommand show(String name, String description, ActionCommand.Action action) {
        ActionCommand command = new ActionCommand(name, description, action);
        commands.put(name, command.spec);
        return command;
    }

    /** Adds a command that changes something. */
    final ActionCommand change(String name, String description, ActionCommand.Change change) {
        return show(name, description, command -> {
            change.run(command);
            return ActionCommand.DONE;
        });
    }

    /** Adds a group of commands. */
    final Group group(String name, String description) {
        Group group = new Group(name, description);
        commands.put(name, group.spec);
        return group;
    }

    @Override
    public final Integer call() {
        return Console.showUsage(spec);
    }
}
