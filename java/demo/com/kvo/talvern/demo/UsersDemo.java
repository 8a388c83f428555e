package com.kvo.talvern.demo;

import static com.kvo.talvern.demo.Demo.refused;
import static com.kvo.talvern.demo.Demo.show;
import static com.kvo.talvern.demo.Demo.title;

import com.kvo.talvern.user.UserUtils;
import java.util.Arrays;

/** User accounts, passwords and SSH keys. */
final class UsersDemo {
    private static final String KEY = "ssh-ed25519 AAAAC3NzaC1lZDI1NTE5AAAAIGRlbW8= operator@console";

    private UsersDemo() {}

    static void run() {
        title("Users");
        UserUtils users = new UserUtils();
        show("status of adding 'operator'", users.addUser("operator", "correct horse"));
        show("of adding it again", users.addUser("operator", "another"));
        show("users", Arrays.toString(users.listUsers()));
        show("'correct horse' logs in", users.authenticateUser("operator", "correct horse"));
        show("'wrong horse' logs in", users.authenticateUser("operator", "wrong horse"));
        show("accepts a new password", users.changePassword("operator", "battery staple"));
        show("the old one logs in", users.authenticateUser("operator", "correct horse"));
        show("status of adding an SSH key", users.sshKeyAdd("operator", KEY));
        show("of adding something else", users.sshKeyAdd("operator", "no key"));
        show("of removing the user's SSH keys", users.sshKeyDel("operator"));
        refused("a null password", () -> users.authenticateUser("operator", null));
        show("status of deleting 'operator'", users.deleteUser("operator"));
        show("'battery staple' logs in", users.authenticateUser("operator", "battery staple"));
    }
}
