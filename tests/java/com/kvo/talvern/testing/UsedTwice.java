package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.NodeName;

/** Where the native library can't be loaded, each use of a class must give the same reason. */
public final class UsedTwice {
    private UsedTwice() {}

    /**
     * @param arguments not used
     */
    public static void main(String[] arguments) {
        LinkageError first = use();
        LinkageError second = use();
        if (first != null && !first.toString().equals(String.valueOf(second))) {
            throw new AssertionError("first " + first + ", then " + second);
        } else if (first != null) {
            throw first;
        }
    }

    private static LinkageError use() {
        try {
            new NodeName().getNodeName();
            return null;
        } catch (LinkageError e) {
            return e;
        }
    }
}
