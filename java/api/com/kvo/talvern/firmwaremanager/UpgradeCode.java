package com.kvo.talvern.firmwaremanager;

/**
 * What a firmware upgrade is doing. The appliance knows the constants by their ordinals.
 */
public enum UpgradeCode {
    /** The image is checked. */
    VERIFYING,
    /** The image is unpacked. */
    UNPACKING,
    /** The new firmware is written. */
    WRITING,
    /** The new firmware runs. */
    FINISHED,
    /** The upgrade was given up; the firmware is unchanged. */
    FAILED;

    /**
     * @return whether this is the last report of an upgrade
     */
    public boolean isLast() {
        return this == FINISHED || this == FAILED;
    }
}
