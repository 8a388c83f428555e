package com.kvo.talvern.console;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/** Rows of the same kind. JSON has all their fields, people see those that the table names. */
final class Table extends ArrayList<Fields> {
    private static final long serialVersionUID = 1L;

    private final Map<String, String> units = new LinkedHashMap<>();

    /**
     * @param columns the names of the fields that people see, each followed by a blank and the unit of its values if it
     *     is not part of the name; none: all
     */
    Table(String... columns) {
        for (String column : columns) {
            String[] parts = column.split(" ", 2);
            units.put(parts[0], parts.length == 1 ? "" : " (" + parts[1] + ")");
        }
    }

    /** A table of objects of the API; null for null. */
    static Table of(Object[] objects, String... columns) {
        if (objects == null) {
            return null;
        }
        Table table = new Table(columns);
        for (Object object : objects) {
            table.add((Fields) Values.plain(object));
        }
        return table;
    }

    /** The names of the fields that people see. */
    List<String> columns() {
        if (!units.isEmpty()) {
            return new ArrayList<>(units.keySet());
        }
        Set<String> names = new LinkedHashSet<>();
        forEach(row -> names.addAll(row.keySet()));
        return new ArrayList<>(names);
    }

    /** What stands above the column of a field. */
    String title(String name) {
        return get(0).title(name) + units.getOrDefault(name, "");
    }
}
