package com.kvo.talvern.appliance;

import java.util.Arrays;

/**
 * A fan, temperature, power supply or voltage of the appliance at one moment.
 *
 * <p>The limits of a voltage are in millivolts; a limit that the appliance doesn't report is 0.
 */
public final class Sensor {
    private final String name;
    private final String reading;
    private final boolean ok;
    private final double minimum;
    private final double maximum;
    private final double lowerWarning;
    private final double upperWarning;
    private final double lowerCritical;
    private final double upperCritical;

    /** All zero and empty; fills a new array until its elements are known. */
    public Sensor() {
        this("", "", false, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    }

    /**
     * A sensor without limits.
     *
     * @param name see {@link #getName}
     * @param reading see {@link #getReading}
     * @param ok see {@link #isOk}
     */
    public Sensor(String name, String reading, boolean ok) {
        this(name, reading, ok, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    }

    /**
     * @param name see {@link #getName}
     * @param reading see {@link #getReading}
     * @param ok see {@link #isOk}
     * @param minimum see {@link #getMinimum}
     * @param maximum see {@link #getMaximum}
     * @param lowerWarning see {@link #getLowerWarning}
     * @param upperWarning see {@link #getUpperWarning}
     * @param lowerCritical see {@link #getLowerCritical}
     * @param upperCritical see {@link #getUpperCritical}
     */
    public Sensor(String name, String reading, boolean ok, double minimum, double maximum,
            double lowerWarning, double upperWarning, double lowerCritical, double upperCritical) {
        this.name = name;
        this.reading = reading;
        this.ok = ok;
        this.minimum = minimum;
        this.maximum = maximum;
        this.lowerWarning = lowerWarning;
        this.upperWarning = upperWarning;
        this.lowerCritical = lowerCritical;
        this.upperCritical = upperCritical;
    }

    /**
     * @return the sensor's name, such as "fan 1"
     */
    public String getName() {
        return name;
    }

    /**
     * @return what it reads, with its unit, such as "5400 rpm"
     */
    public String getReading() {
        return reading;
    }

    /**
     * @return whether all is well with what it watches
     */
    public boolean isOk() {
        return ok;
    }

    /**
     * @return the lowest allowed value
     */
    public double getMinimum() {
        return minimum;
    }

    /**
     * @return the highest allowed value
     */
    public double getMaximum() {
        return maximum;
    }

    /**
     * @return the value below which the appliance warns
     */
    public double getLowerWarning() {
        return lowerWarning;
    }

    /**
     * @return the value above which the appliance warns
     */
    public double getUpperWarning() {
        return upperWarning;
    }

    /**
     * @return the value below which the appliance is in danger
     */
    public double getLowerCritical() {
        return lowerCritical;
    }

    /**
     * @return the value above which the appliance is in danger
     */
    public double getUpperCritical() {
        return upperCritical;
    }

    private Object[] values() {
        return new Object[] {name, reading, ok, minimum, maximum, lowerWarning, upperWarning, lowerCritical,
                upperCritical};
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof Sensor && Arrays.equals(values(), ((Sensor) other).values());
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(values());
    }

    @Override
    public String toString() {
        return "Sensor{name=" + name + ", reading=" + reading + ", ok=" + ok + ", minimum=" + minimum
                + ", maximum=" + maximum + ", lowerWarning=" + lowerWarning + ", upperWarning="
                + upperWarning + ", lowerCritical=" + lowerCritical + ", upperCritical=" + upperCritical
                + "}";
    }
}
