package com.kvo.talvern.console;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/** Rows of the same kind. JSON has all their fields, people see those that the table names. */
final class Table extends ArrayList<Fields> {
    private static final long serialVersionUID = 1L;

    private final String[] columns;

    /**
     * @param columns the names of the fields that people see; none: all
     */
    Table(String... columns) {
        this.columns = columns;
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
        if (columns.length > 0) {
            return List.of(columns);
        }
        Set<String> names = new LinkedHashSet<>();
        forEach(row -> names.addAll(row.keySet()));
        return new ArrayList<>(names);
    }
}
