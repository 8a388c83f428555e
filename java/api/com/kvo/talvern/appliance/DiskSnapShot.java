package com.kvo.talvern.appliance;

import java.util.Arrays;

/**
 * A physical disk of the appliance at one moment.
 */
public final class DiskSnapShot {
    private final String deviceName;
    private final String vendor;
    private final String product;
    private final String serialNumber;
    private final String revision;
    private final int bay;
    private final String worldWideName;
    private final int controller;
    private final int channel;
    private final int target;
    private final int logicalUnit;
    private final String volumeName;
    private final byte temperature;
    private final boolean present;
    private final boolean online;
    private final boolean spare;
    private final boolean failurePredicted;
    private final int mediaErrors;
    private final int otherErrors;
    private final int powerOnHours;
    private final int rotationSpeed;
    private final String state;
    private final byte rebuilt;
    private final int blockSize;
    private final long size;
    private final long used;
    private final byte wear;
    private final byte selfTestResult;
    private final String interfaceType;
    private final String location;

    /** All zero and empty; fills a new array until its elements are known. */
    public DiskSnapShot() {
        this("", "", "", "", "", 0, "", 0, 0, 0, 0, "", (byte) 0, false, false, false, false, 0, 0, 0, 0, "",
                (byte) 0, 0, 0, 0, (byte) 0, (byte) 0, "", "");
    }

    /**
     * @param deviceName see {@link #getDeviceName}
     * @param vendor see {@link #getVendor}
     * @param product see {@link #getProduct}
     * @param serialNumber see {@link #getSerialNumber}
     * @param revision see {@link #getRevision}
     * @param bay see {@link #getBay}
     * @param worldWideName see {@link #getWorldWideName}
     * @param controller see {@link #getController}
     * @param channel see {@link #getChannel}
     * @param target see {@link #getTarget}
     * @param logicalUnit see {@link #getLogicalUnit}
     * @param volumeName see {@link #getVolumeName}
     * @param temperature see {@link #getTemperature}
     * @param present see {@link #isPresent}
     * @param online see {@link #isOnline}
     * @param spare see {@link #isSpare}
     * @param failurePredicted see {@link #isFailurePredicted}
     * @param mediaErrors see {@link #getMediaErrors}
     * @param otherErrors see {@link #getOtherErrors}
     * @param powerOnHours see {@link #getPowerOnHours}
     * @param rotationSpeed see {@link #getRotationSpeed}
     * @param state see {@link #getState}
     * @param rebuilt see {@link #getRebuilt}
     * @param blockSize see {@link #getBlockSize}
     * @param size see {@link #getSize}
     * @param used see {@link #getUsed}
     * @param wear see {@link #getWear}
     * @param selfTestResult see {@link #getSelfTestResult}
     * @param interfaceType see {@link #getInterfaceType}
     * @param location see {@link #getLocation}
     */
    public DiskSnapShot(String deviceName, String vendor, String product, String serialNumber,
            String revision, int bay, String worldWideName, int controller, int channel, int target,
            int logicalUnit, String volumeName, byte temperature, boolean present, boolean online,
            boolean spare, boolean failurePredicted, int mediaErrors, int otherErrors, int powerOnHours,
            int rotationSpeed, String state, byte rebuilt, int blockSize, long size, long used, byte wear,
            byte selfTestResult, String interfaceType, String location) {
        this.deviceName = deviceName;
        this.vendor = vendor;
        this.product = product;
        this.serialNumber = serialNumber;
        this.revision = revision;
        this.bay = bay;
        this.worldWideName = worldWideName;
        this.controller = controller;
        this.channel = channel;
        this.target = target;
        this.logicalUnit = logicalUnit;
        this.volumeName = volumeName;
        this.temperature = temperature;
        this.present = present;
        this.online = online;
        this.spare = spare;
        this.failurePredicted = failurePredicted;
        this.mediaErrors = mediaErrors;
        this.otherErrors = otherErrors;
        this.powerOnHours = powerOnHours;
        this.rotationSpeed = rotationSpeed;
        this.state = state;
        this.rebuilt = rebuilt;
        this.blockSize = blockSize;
        this.size = size;
        this.used = used;
        this.wear = wear;
        this.selfTestResult = selfTestResult;
        this.interfaceType = interfaceType;
        this.location = location;
    }

    /**
     * @return its name in the system, such as "sda"
     */
    public String getDeviceName() {
        return deviceName;
    }

    /**
     * @return who made it
     */
    public String getVendor() {
        return vendor;
    }

    /**
     * @return its model
     */
    public String getProduct() {
        return product;
    }

    /**
     * @return its serial number
     */
    public String getSerialNumber() {
        return serialNumber;
    }

    /**
     * @return the revision of its firmware
     */
    public String getRevision() {
        return revision;
    }

    /**
     * @return the number of the bay that it is in
     */
    public int getBay() {
        return bay;
    }

    /**
     * @return its worldwide unique name
     */
    public String getWorldWideName() {
        return worldWideName;
    }

    /**
     * @return the number of its controller, 0 to 255
     */
    public int getController() {
        return controller;
    }

    /**
     * @return the controller's channel that it is on, 0 to 255
     */
    public int getChannel() {
        return channel;
    }

    /**
     * @return its address on the channel, 0 to 255
     */
    public int getTarget() {
        return target;
    }

    /**
     * @return its logical unit, 0 to 255
     */
    public int getLogicalUnit() {
        return logicalUnit;
    }

    /**
     * @return the name of the RAID volume that it belongs to; empty if none
     */
    public String getVolumeName() {
        return volumeName;
    }

    /**
     * @return its temperature in degrees Celsius
     */
    public byte getTemperature() {
        return temperature;
    }

    /**
     * @return whether it is in its bay
     */
    public boolean isPresent() {
        return present;
    }

    /**
     * @return whether it takes part in its volume
     */
    public boolean isOnline() {
        return online;
    }

    /**
     * @return whether it waits to replace another
     */
    public boolean isSpare() {
        return spare;
    }

    /**
     * @return whether it expects to fail soon
     */
    public boolean isFailurePredicted() {
        return failurePredicted;
    }

    /**
     * @return how many errors of its medium it has counted
     */
    public int getMediaErrors() {
        return mediaErrors;
    }

    /**
     * @return how many other errors it has counted
     */
    public int getOtherErrors() {
        return otherErrors;
    }

    /**
     * @return how many hours it has been on
     */
    public int getPowerOnHours() {
        return powerOnHours;
    }

    /**
     * @return its speed in rpm; 0 if it has no moving parts
     */
    public int getRotationSpeed() {
        return rotationSpeed;
    }

    /**
     * @return its state in a word, such as "online"
     */
    public String getState() {
        return state;
    }

    /**
     * @return how much of it has been rebuilt, in percent
     */
    public byte getRebuilt() {
        return rebuilt;
    }

    /**
     * @return the size of a block in bytes
     */
    public int getBlockSize() {
        return blockSize;
    }

    /**
     * @return its size in bytes
     */
    public long getSize() {
        return size;
    }

    /**
     * @return how much of it belongs to a volume, in bytes
     */
    public long getUsed() {
        return used;
    }

    /**
     * @return how much of its life is spent, in percent; -1 if it doesn't tell
     */
    public byte getWear() {
        return wear;
    }

    /**
     * @return the result of its last self-test: 0 passed, -1 never run, others are the disk's own
     */
    public byte getSelfTestResult() {
        return selfTestResult;
    }

    /**
     * @return how it is connected, such as "SATA 6 Gb/s"
     */
    public String getInterfaceType() {
        return interfaceType;
    }

    /**
     * @return where it is, for a person
     */
    public String getLocation() {
        return location;
    }

    private Object[] values() {
        return new Object[] {deviceName, vendor, product, serialNumber, revision, bay, worldWideName,
                controller, channel, target, logicalUnit, volumeName, temperature, present, online, spare,
                failurePredicted, mediaErrors, otherErrors, powerOnHours, rotationSpeed, state, rebuilt,
                blockSize, size, used, wear, selfTestResult, interfaceType, location};
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof DiskSnapShot && Arrays.equals(values(), ((DiskSnapShot) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(values());
    }

    @Override
    public String toString() {
        return "DiskSnapShot{deviceName=" + deviceName + ", vendor=" + vendor + ", product=" + product
                + ", serialNumber=" + serialNumber + ", revision=" + revision + ", bay=" + bay
                + ", worldWideName=" + worldWideName + ", controller=" + controller + ", channel=" + channel
                + ", target=" + target + ", logicalUnit=" + logicalUnit + ", volumeName=" + volumeName
                + ", temperature=" + temperature + ", present=" + present + ", online=" + online
                + ", spare=" + spare + ", failurePredicted=" + failurePredicted + ", mediaErrors="
                + mediaErrors + ", otherErrors=" + otherErrors + ", powerOnHours=" + powerOnHours
                + ", rotationSpeed=" + rotationSpeed + ", state=" + state + ", rebuilt=" + rebuilt
                + ", blockSize=" + blockSize + ", size=" + size + ", used=" + used + ", wear=" + wear
                + ", selfTestResult=" + selfTestResult + ", interfaceType=" + interfaceType + ", location="
                + location + "}";
    }
}
