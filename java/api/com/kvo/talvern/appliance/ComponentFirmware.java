package com.kvo.talvern.appliance;

import java.util.Objects;

/**
 * The firmware of one component of the appliance.
 */
public final class ComponentFirmware {
    private final int component;
    private final String firmware;

    /** A component numbered 0 without firmware. */
    public ComponentFirmware() {
        this(0, "");
    }

    /**
     * @param component the appliance's number of the component
     * @param firmware its firmware
     */
    public ComponentFirmware(int component, String firmware) {
        this.component = component;
        this.firmware = firmware;
    }

    /**
     * @return the appliance's number of the component
     */
    public int getComponent() {
        return component;
    }

    /**
     * @return its firmware
     */
    public String getFirmware() {
        return firmware;
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof ComponentFirmware && ((ComponentFirmware) other).component == component
                && ((ComponentFirmware) other).firmware.equals(firmware);
    }

    @Override
    public int hashCode() {
        return Objects.hash(component, firmware);
    }

    @Override
    public String toString() {
        return component + ": " + firmware;
    }
}
