package com.kvo.talvern.console;

import java.util.LinkedHashMap;

/**
 * Named values, in the order in which they are shown: texts, numbers, truth values, nulls, lists, tables, or
 * fields again. The names are those of the JSON; people see "serial number" for {@code serialNumber}, and
 * "size (MiB)" for {@code sizeMiB}, but names that the appliance gives as they are.
 */
final class Fields extends LinkedHashMap<String, Object> {
    private static final long serialVersionUID = 1L;

    private final boolean areNamesOfAppliance;

    /** Fields with names of the console's own. */
    Fields() {
        this(false);
    }

    /**
     * @param areNamesOfAppliance whether the names are the appliance's
     */
    Fields(boolean areNamesOfAppliance) {
        this.areNamesOfAppliance = areNamesOfAppliance;
    }

    /** Adds a field; see {@link Values#plain} for what a value may be. */
    Fields and(String name, Object value) {
        put(name, Values.plain(value));
        return this;
    }

    /** A name as people read it. */
    String label(String name) {
        if (areNamesOfAppliance) {
            return name;
        }
        String unit = name.endsWith("KiB") || name.endsWith("MiB") ? name.substring(name.length() - 3) : "";
        String words = name.substring(0, name.length() - unit.length()).replaceAll("(?<=[a-z])(?=[A-Z])", " ").toLowerCase();
        return unit.isEmpty() ? words : words + " (" + unit + ")";
    }

    /** A name as the title of a column. */
    String title(String name) {
        return areNamesOfAppliance ? name : label(name).toUpperCase().replace("IB)", "iB)");
    }
}
