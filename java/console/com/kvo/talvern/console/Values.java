package com.kvo.talvern.console;

import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;

/** Turns what the API returns into what the console shows. */
final class Values {
    private Values() {}

    /**
     * Texts, numbers, truth values and nulls stay as they are, enum constants become their names; lists and arrays
     * become lists, or tables if they have elements with fields; maps, configuration values and other objects of
     * the API become fields.
     */
    static Object plain(Object value) {
        if (value == null || value instanceof String || value instanceof Number || value instanceof Boolean
                || value instanceof Fields || value instanceof Table) {
            return value;
        } else if (value instanceof Enum) {
            return ((Enum<?>) value).name();
        } else if (value instanceof SimpleValue) {
            return ((SimpleValue) value).getValue();
        } else if (value instanceof StructValue) {
            Fields fields = new Fields(true);
            ((StructValue) value).entrySet().forEach(entry -> fields.and(entry.getKey(), entry.getValue()));
            return fields;
        } else if (value instanceof Map) {
            Fields fields = new Fields(true);
            new TreeMap<>((Map<?, ?>) value).forEach((key, element) -> fields.and(key.toString(), element));
            return fields;
        } else if (value instanceof Object[]) {
            return list(Arrays.asList((Object[]) value));
        } else if (value instanceof Iterable) {
            return list((Iterable<?>) value);
        }
        return fields(value);
    }

    private static List<?> list(Iterable<?> elements) {
        List<Object> list = new ArrayList<>();
        Table table = new Table();
        for (Object element : elements) {
            Object plain = plain(element);
            list.add(plain);
            if (plain instanceof Fields) {
                table.add((Fields) plain);
            }
        }
        return !list.isEmpty() && table.size() == list.size() ? table : list;
    }

    /** What the getters of an object return. */
    private static Fields fields(Object object) {
        Fields fields = new Fields();
        for (Field field : object.getClass().getDeclaredFields()) {
            String name = field.getName().replaceFirst("^is(?=[A-Z])", "");
            name = Character.toLowerCase(name.charAt(0)) + name.substring(1);
            String capital = Character.toUpperCase(name.charAt(0)) + name.substring(1);
            for (Method method : object.getClass().getMethods()) {
                if (method.getName().equals("get" + capital) || method.getName().equals("is" + capital)) {
                    fields.and(name, call(method, object));
                }
            }
        }
        return fields;
    }

    private static Object call(Method getter, Object object) {
        try {
            return getter.invoke(object);
        } catch (ReflectiveOperationException e) {
            throw new IllegalStateException(e);
        }
    }
}
