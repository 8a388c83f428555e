package com.kvo.talvern.console;

import com.kvo.talvern.user.UserUtils;

/** The appliance's user accounts. Passwords are asked for; they never are arguments. */
final class UsersCommands extends Group {
    private static final String NAME = "The name of a user.";

    UsersCommands() {
        super("users", "Shows and changes the user accounts. Passwords are asked for without echo, or taken from the"
                + " standard input, a line each.");
    }

    @Override
    void addCommands() {
        show("list", "Lists the users.", command -> new Fields().and("users", new UserUtils().listUsers()));
        change("add", "Creates an account, and asks for its password.", command -> Refusal.unlessZero(
                new UserUtils().addUser(command.text("NAME"), command.password(command.text("NAME"), true)),
                "user")).parameter("NAME", NAME).secret();
        change("delete", "Removes an account with its password and SSH keys.", command -> Refusal.unlessZero(
                new UserUtils().deleteUser(command.text("NAME")), "user")).parameter("NAME", NAME);
        change("password", "Changes a user's password, which is asked for.", command -> Refusal.unless(
                new UserUtils().changePassword(command.text("NAME"), command.password(command.text("NAME"), true)),
                "The appliance refuses this user or this password.")).parameter("NAME", NAME).secret();
        change("login", "Checks a user's password, which is asked for.", command -> Refusal.unless(
                new UserUtils().authenticateUser(command.text("NAME"), command.password(command.text("NAME"), false)),
                "The user or the password is wrong.")).parameter("NAME", NAME).secret();
        Group keys = group("key", "Changes the SSH keys with which a user may log in.");
        keys.change("add", "Adds a key.", command -> Refusal.unlessZero(
                new UserUtils().sshKeyAdd(command.text("NAME"), String.join(" ", command.list("KEY"))),
                "user or key"))
                .parameter("NAME", NAME).list("KEY", "1..*", "The public key: type, key and possibly a comment.");
        keys.change("delete", "Removes all keys of a user.", command -> Refusal.unlessZero(
                new UserUtils().sshKeyDel(command.text("NAME")), "user or key")).parameter("NAME", NAME);
    }
}
