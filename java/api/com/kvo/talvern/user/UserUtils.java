package com.kvo.talvern.user;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The appliance's user accounts, with their passwords and SSH keys.
 */
public class UserUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(UserUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * Creates an account.
     *
     * @param name the name of the new user, not null
     * @param password the password, not null
     * @return the appliance's status, 0 for success
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public int addUser(String name, String password) {
        return _addUser(name, password);
    }

    /**
     * Removes an account with its password and SSH keys.
     *
     * @param name the user's name, not null
     * @return the appliance's status, 0 for success
     */
    public int deleteUser(String name) {
        return _deleteUser(name);
    }

    /**
     * Lets who holds the private half of an SSH key log in as the user.
     *
     * @param name the user's name, not null
     * @param key the public key as one line of text: type, key and possibly a comment; not null
     * @return the appliance's status, 0 for success
     */
    public int sshKeyAdd(String name, String key) {
        return _sshKeyAdd(name, key);
    }

    /**
     * Removes all SSH keys of a user.
     *
     * @param name the user's name, not null
     * @return the appliance's status, 0 for success
     */
    public int sshKeyDel(String name) {
        return _sshKeyDel(name);
    }

    /**
     * Changes a user's password.
     *
     * @param name the user's name, not null
     * @param newPassword the new password, not null
     * @return whether the appliance accepted it
     */
    public boolean changePassword(String name, String newPassword) {
        return _changePassword(name, newPassword);
    }

    /**
     * Checks a user's password.
     *
     * @param name the user's name, not null
     * @param password what the user entered, not null
     * @return whether it is the user's password
     */
    public boolean authenticateUser(String name, String password) {
        return _authenticateUser(name, password);
    }

    /**
     * @return the names of all users, in the appliance's order
     */
    public String[] listUsers() {
        return _listUsers();
    }

    private native int _addUser(String name, String password);

    private native int _deleteUser(String name);

    private native int _sshKeyAdd(String name, String key);

    private native int _sshKeyDel(String name);

    private native boolean _changePassword(String name, String newPassword);

    private native boolean _authenticateUser(String name, String password);

    private native String[] _listUsers();
}
