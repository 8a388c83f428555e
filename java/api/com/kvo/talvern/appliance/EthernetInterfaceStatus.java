package com.kvo.talvern.appliance;

import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import java.util.Objects;

/**
 * The status of one network interface, at the time of the question.
 */
public class EthernetInterfaceStatus {
    private final String name;
    private final boolean enabled;
    private final boolean up;
    private final Map<String, String>[] details;

    /**
     * @param name the name of the interface
     * @param enabled whether its configuration lets it work
     * @param up whether it can carry traffic
     * @param details the sets of attributes that describe it; null if there are none
     */
    public EthernetInterfaceStatus(String name, boolean enabled, boolean up, Map<String, String>[] details) {
        this.name = name;
        this.enabled = enabled;
        this.up = up;
        this.details = details == null ? null : details.clone();
    }

    /**
     * @return the name of the interface, as it was asked for
     */
    public String getName() {
        return name;
    }

    /**
     * @return whether the configuration lets the interface work
     */
    public boolean isEnabled() {
        return enabled;
    }

    /**
     * @return whether the interface can carry traffic
     */
    public boolean isUp() {
        return up;
    }

    /**
     * @return the sets of attributes that describe the interface, such as one per address, in the appliance's
     *     order; empty if there are none
     */
    public List<Map<String, String>> getDetails() {
        return details == null ? Collections.emptyList() : Collections.unmodifiableList(Arrays.asList(details));
    }

    @Override
    public boolean equals(Object other) {
        if (!(other instanceof EthernetInterfaceStatus)) {
            return false;
        }
        EthernetInterfaceStatus status = (EthernetInterfaceStatus) other;
        return Objects.equals(name, status.name) && enabled == status.enabled && up == status.up
                && getDetails().equals(status.getDetails());
    }

    @Override
    public int hashCode() {
        return Objects.hash(name, enabled, up, getDetails());
    }

    @Override
    public String toString() {
        return name + (enabled ? " enabled" : " disabled") + (up ? " up " : " down ") + getDetails();
    }
}
