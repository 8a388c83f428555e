package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The name by which the appliance is known in its network.
 */
public class NodeName {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(NodeName.class);

    {
        LIBRARY.require();
    }

    /**
     * Gives the appliance its initial name.
     *
     * @return a status, 0 for success
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public int initNodeName() {
        return _initNodeName();
    }

    /**
     * @return the current name; empty if none is set
     */
    public String getNodeName() {
        return _getNodeName();
    }

    /**
     * Changes the name.
     *
     * @param name the new host name, not null; the simulated appliance accepts letters, digits, dots and hyphens
     * @return whether the appliance accepted it
     */
    public boolean setNodeName(String name) {
        return _setNodeName(name);
    }

    private native int _initNodeName();

    private native String _getNodeName();

    private native boolean _setNodeName(String name);
}
