package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.NodeName;

/** Where the native library can't be loaded, each use of a class must give the same reason. */
public final class UsedTwice {
    private UsedTwice() {}

    /**
     * @param arguments not used
     */
    public static void main(String[] arguments) {
        try {
            new NodeName().getNodeName();
        } catch (LinkageError first) {
            try {
                new NodeName();
            } catch (LinkageError second) {
                if (second.toString().equals(first.toString())) {
                    throw first;
                }
            }
            throw new AssertionError("another use gives no such reason", first);
        }
    }
}
