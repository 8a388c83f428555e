package com.kvo.talvern.console;

import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.config.Value;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils.UpgradeCallback;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;

/** Turns words into arguments of the API's methods. */
final class Arguments {
    private static final int MOST_FILES = 1000;

    private Arguments() {}

    /** How an argument of a type is typed. */
    static String describe(Class<?> type) {
        if (type.isEnum()) {
            return constants(type);
        } else if (type == boolean.class) {
            return "true|false";
        } else if (type.isPrimitive()) {
            return "number";
        } else if (type == String[].class) {
            return "text,text...";
        } else if (type == FileError[].class) {
            return "length";
        } else if (type == UpgradeCallback.class) {
            return "progress|null";
        }
        return type == Value.class ? "JSON or key=value" : "text";
    }

    /**
     * Words stand for what their type needs. {@code null} is null, and {@code \null} the text.
     *
     * @throws IllegalArgumentException if a word does not fit its type; the message says what would
     */
    static Object parse(Class<?> type, String word, Output output) {
        if (word.equals("null") && !type.isPrimitive()) {
            return null;
        } else if (type == String.class) {
            return text(word);
        } else if (type == String[].class) {
            return word.isEmpty() ? new String[0] : Arrays.stream(word.split(",", -1))
                    .map(element -> element.equals("null") ? null : text(element)).toArray(String[]::new);
        } else if (type == int.class) {
            // A mask may have its highest bit set.
            return (int) number(word, Integer.MIN_VALUE, word.startsWith("0x") ? 0xffffffffL : Integer.MAX_VALUE);
        } else if (type == long.class) {
            return number(word, Long.MIN_VALUE, Long.MAX_VALUE);
        } else if (type == boolean.class && word.matches("true|false")) {
            return Boolean.valueOf(word);
        } else if (type == FileError[].class) {
            return new FileError[(int) number(word, 0, MOST_FILES)];
        } else if (type == UpgradeCallback.class && word.equals("progress")) {
            return new Progress(output);
        } else if (type == Value.class) {
            return ConfigText.value(List.of(word));
        } else if (type.isEnum()) {
            for (Object constant : type.getEnumConstants()) {
                if (((Enum<?>) constant).name().equalsIgnoreCase(word)) {
                    return constant;
                }
            }
        }
        throw new IllegalArgumentException("'" + word + "' is not " + describe(type) + ".");
    }

    private static String text(String word) {
        return word.startsWith("\\") ? word.substring(1) : word;
    }

    private static long number(String word, long least, long greatest) {
        try {
            long number = Long.decode(word);
            if (number >= least && number <= greatest) {
                return number;
            }
        } catch (NumberFormatException e) {
            // is answered below, like a number that is too large
        }
        throw new IllegalArgumentException("'" + word + "' is not a number from " + least + " to " + greatest + ".");
    }

    private static String constants(Class<?> type) {
        return Arrays.stream(type.getEnumConstants()).map(Object::toString).collect(Collectors.joining("|"));
    }
}
