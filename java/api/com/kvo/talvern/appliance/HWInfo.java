package com.kvo.talvern.appliance;

/**
 * What the appliance says about its hardware. A text that it does not know is empty.
 */
public final class HWInfo {
    private final String manufacturer;
    private final String productName;
    private final String machineType;
    private final String serialNumber;
    private final String biosVersion;
    private final String biosDate;
    private final boolean isVirtual;

    /**
     * @param manufacturer who made the appliance
     * @param productName the name under which it is sold
     * @param machineType the machine type
     * @param serialNumber the serial number
     * @param biosVersion the version of the BIOS
     * @param biosDate the date of the BIOS
     * @param isVirtual whether the appliance is a virtual machine
     */
    public HWInfo(String manufacturer, String productName, String machineType, String serialNumber,
            String biosVersion, String biosDate, boolean isVirtual) {
        this.manufacturer = manufacturer;
        this.productName = productName;
        this.machineType = machineType;
        this.serialNumber = serialNumber;
        this.biosVersion = biosVersion;
        this.biosDate = biosDate;
        this.isVirtual = isVirtual;
    }

    /**
     * @return who made the appliance
     */
    public String getManufacturer() {
        return manufacturer;
    }

    /**
     * @return the name under which it is sold
     */
    public String getProductName() {
        return productName;
    }

    /**
     * @return the machine type
     */
    public String getMachineType() {
        return machineType;
    }

    /**
     * @return the serial number
     */
    public String getSerialNumber() {
        return serialNumber;
    }

    /**
     * @return the version of the BIOS
     */
    public String getBiosVersion() {
        return biosVersion;
    }

    /**
     * @return the date of the BIOS
     */
    public String getBiosDate() {
        return biosDate;
    }

    /**
     * @return whether the appliance is a virtual machine
     */
    public boolean isVirtual() {
        return isVirtual;
    }

    @Override
    public String toString() {
        return manufacturer + " " + productName + ", machine type " + machineType + ", serial number "
                + serialNumber + ", BIOS " + biosVersion + " of " + biosDate
                + (isVirtual ? ", virtual" : "");
    }
}
