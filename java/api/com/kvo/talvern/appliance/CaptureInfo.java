package com.kvo.talvern.appliance;

import com.kvo.talvern.appliance.PacketCapture.kwInterfaceState;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Objects;
import java.util.Vector;

/**
 * The capture of one network interface, as it was when asked for.
 */
public class CaptureInfo {
    private final String interfaceName;
    private final kwInterfaceState state;
    private final List<String> files;

    /**
     * @param interfaceName the interface
     * @param state the state of its capture
     * @param files the files that hold what was captured, oldest first
     */
    public CaptureInfo(String interfaceName, kwInterfaceState state, Vector<String> files) {
        this.interfaceName = interfaceName;
        this.state = state;
        this.files = Collections.unmodifiableList(new ArrayList<>(files));
    }

    /**
     * @return the interface
     */
    public String getInterfaceName() {
        return interfaceName;
    }

    /**
     * @return the state of its capture
     */
    public kwInterfaceState getState() {
        return state;
    }

    /**
     * @return the files that hold what was captured, oldest first; can't be changed
     */
    public List<String> getFiles() {
        return files;
    }

    @Override
    public boolean equals(Object object) {
        if (!(object instanceof CaptureInfo)) {
            return false;
        }
        CaptureInfo other = (CaptureInfo) object;
        return Objects.equals(interfaceName, other.interfaceName) && state == other.state
                && files.equals(other.files);
    }

    @Override
    public int hashCode() {
        return Objects.hash(interfaceName, state, files);
    }

    @Override
    public String toString() {
        return interfaceName + ": " + state + ", files " + files;
    }
}
