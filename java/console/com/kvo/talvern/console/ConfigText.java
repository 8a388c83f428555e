package com.kvo.talvern.console;

import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.Value;
import java.util.List;

/**
 * Configuration values as they are typed: JSON (objects, arrays and texts), {@code key=value} pairs, whose values
 * may be JSON again, or a plain text.
 */
final class ConfigText {
    private ConfigText() {}

    /**
     * @throws IllegalArgumentException if the words are no value; the message says why
     */
    static Value value(List<String> words) {
        if (words.size() == 1 && (isJson(words.get(0)) || words.get(0).indexOf('=') < 0)) {
            return value(words.get(0));
        }
        StructValue struct = new StructValue(false);
        for (String word : words) {
            int end = word.indexOf('=');
            if (end <= 0) {
                throw new IllegalArgumentException("'" + word + "' is not KEY=VALUE.");
            }
            struct.put(word.substring(0, end), value(word.substring(end + 1)));
        }
        return struct;
    }

    private static boolean isJson(String word) {
        return !word.isEmpty() && "{[\"".indexOf(word.charAt(0)) >= 0;
    }

    private static Value value(String word) {
        return isJson(word) ? value(Json.read(word)) : new SimpleValue(word, false);
    }

    private static Value value(Object plain) {
        if (plain instanceof Fields) {
            StructValue struct = new StructValue(false);
            ((Fields) plain).forEach((key, member) -> struct.put(key, value(member)));
            return struct;
        } else if (plain instanceof List) {
            ArrayValue array = new ArrayValue(false);
            ((List<?>) plain).forEach(element -> array.add(value(element)));
            return array;
        }
        return plain == null ? null : new SimpleValue(plain.toString(), false);
    }
}
