package com.kvo.talvern.appliance;

import java.util.Arrays;

/**
 * A RAID volume of the appliance at one moment.
 */
public final class RaidVolume {
    private final String name;
    private final int raidLevel;
    private final RaidPartition[] partitions;
    private final boolean ok;
    private final int synchronised;

    /** All zero and empty; fills a new array until its elements are known. */
    public RaidVolume() {
        this("", 0, new RaidPartition[0], false, 0);
    }

    /**
     * @param name see {@link #getName}
     * @param raidLevel see {@link #getRaidLevel}
     * @param partitions see {@link #getPartitions}
     * @param ok see {@link #isOk}
     * @param synchronised see {@link #getSynchronised}
     */
    public RaidVolume(String name, int raidLevel, RaidPartition[] partitions, boolean ok,
            int synchronised) {
        this.name = name;
        this.raidLevel = raidLevel;
        this.partitions = partitions.clone();
        this.ok = ok;
        this.synchronised = synchronised;
    }

    /**
     * @return its name
     */
    public String getName() {
        return name;
    }

    /**
     * @return its RAID level, such as 1 for a mirror
     */
    public int getRaidLevel() {
        return raidLevel;
    }

    /**
     * @return its partitions; of length 0 if it has none
     */
    public RaidPartition[] getPartitions() {
        return partitions.clone();
    }

    /**
     * @return whether it works with all its disks
     */
    public boolean isOk() {
        return ok;
    }

    /**
     * @return how far its disks agree, in percent
     */
    public int getSynchronised() {
        return synchronised;
    }

    private Object[] values() {
        return new Object[] {name, raidLevel, partitions, ok, synchronised};
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof RaidVolume && Arrays.deepEquals(values(), ((RaidVolume) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.deepHashCode(values());
    }

    @Override
    public String toString() {
        return "RaidVolume{name=" + name + ", raidLevel=" + raidLevel + ", partitions="
                + Arrays.toString(partitions) + ", ok=" + ok + ", synchronised=" + synchronised + "}";
    }
}
