package com.kvo.talvern.console;

import java.util.LinkedHashMap;

/**
 * Named values, in the order in which they are shown: texts, numbers, truth values, nulls, lists, tables, or
 * fields again. The names are those of the JSON; people see "serial number" for {@code serialNumber}, and
 * "size (MiB)" for {@code sizeMiB}.
 */
final class Fields extends LinkedHashMap<String, Object> {
    private static final long serialVersionUID = 1L;

    /** Adds a field; see {@link Values#plain} for what a value may be. */
    Fields and(String name, Object value) {
        put(name, Values.plain(value));
        return this;
    }

    /** A name as people read it. */
    static String label(String name) {
        return name.replaceFirst("(KiB|MiB)$", " ($1)").replaceAll("(?<=[a-z])(?=[A-Z](?!iB))", " ").toLowerCase()
                .replace("(kib)", "(KiB)").replace("(mib)", "(MiB)");
    }
}
