package com.kvo.talvern.console;

import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Model.OptionSpec;
import picocli.CommandLine.ParameterException;

/** Commands on one subject. */
class Group implements Runnable {
    /** The description, with the subcommands. */
    final CommandSpec spec;

    /**
     * @param name the word before the commands
     * @param description for the help, in sentences
     */
    Group(String name, String description) {
        spec = CommandSpec.wrapWithoutInspection(this).name(name);
        spec.usageMessage().description(description.split("(?<=[.]) ", 2));
        spec.addOption(OptionSpec.builder("-h", "--help").usageHelp(true).description("Show this help.").build());
    }

    /** Adds the group's commands; if they are not needed, the console starts without them. */
    void addCommands() {}

    /** Adds a command that shows something. */
    final ActionCommand show(String name, String description, ActionCommand.Action action) {
        ActionCommand command = new ActionCommand(name, description, action);
        spec.addSubcommand(name, command.spec);
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
        spec.addSubcommand(name, group.spec);
        return group;
    }

    @Override
    public void run() {
        throw new ParameterException(spec.commandLine(), "A command is missing.");
    }
}
