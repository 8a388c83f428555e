package com.kvo.talvern.appliance;

import java.util.Arrays;

/**
 * A partition of a RAID volume at one moment.
 */
public final class RaidPartition {
    private final String mountPoint;
    private final int size;
    private final int used;
    private final String fileSystem;
    private final boolean mounted;

    /** All zero and empty; fills a new array until its elements are known. */
    public RaidPartition() {
        this("", 0, 0, "", false);
    }

    /**
     * @param mountPoint see {@link #getMountPoint}
     * @param size see {@link #getSize}
     * @param used see {@link #getUsed}
     * @param fileSystem see {@link #getFileSystem}
     * @param mounted see {@link #isMounted}
     */
    public RaidPartition(String mountPoint, int size, int used, String fileSystem, boolean mounted) {
        this.mountPoint = mountPoint;
        this.size = size;
        this.used = used;
        this.fileSystem = fileSystem;
        this.mounted = mounted;
    }

    /**
     * @return the folder under which it is mounted
     */
    public String getMountPoint() {
        return mountPoint;
    }

    /**
     * @return its size in MiB
     */
    public int getSize() {
        return size;
    }

    /**
     * @return how much of it is in use, in MiB
     */
    public int getUsed() {
        return used;
    }

    /**
     * @return its file system, such as "ext4"
     */
    public String getFileSystem() {
        return fileSystem;
    }

    /**
     * @return whether it is mounted
     */
    public boolean isMounted() {
        return mounted;
    }

    private Object[] values() {
        return new Object[] {mountPoint, size, used, fileSystem, mounted};
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof RaidPartition && Arrays.equals(values(), ((RaidPartition) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(values());
    }

    @Override
    public String toString() {
        return "RaidPartition{mountPoint=" + mountPoint + ", size=" + size + ", used=" + used
                + ", fileSystem=" + fileSystem + ", mounted=" + mounted + "}";
    }
}
