package com.kvo.talvern.appliance;

/**
 * A file that a device reset could not remove or restore.
 */
public final class FileError {
    private String file = "";
    private int error;

    /**
     * @return the file
     */
    public String getFile() {
        return file;
    }

    /**
     * @param file the file
     */
    public void setFile(String file) {
        this.file = file;
    }

    /**
     * @return the system's error number
     */
    public int getError() {
        return error;
    }

    /**
     * @param error the system's error number
     */
    public void setError(int error) {
        this.error = error;
    }

    @Override
    public String toString() {
        return file + ": error " + error;
    }
}
