package com.kvo.talvern.internal;

import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * Names of functions in native libraries. For the classes of this product only.
 */
public final class SymbolNames {
    /** A name within others, of a const member function too, or of what belongs to a class. */
    private static final Pattern CPLUSPLUS = Pattern.compile("_Z(T.)?NK?");

    private static final Pattern LENGTH = Pattern.compile("[0-9]{1,5}");

    private SymbolNames() {}

    /**
     * @param className a class such as "com/kvo/talvern/appliance/NodeName"
     * @param method the name of one of its native methods
     * @return the function that the JVM binds to the method
     */
    public static String ofNative(String className, String method) {
        StringBuilder symbol = new StringBuilder("Java_");
        for (char c : (className + "/" + method).toCharArray()) {
            if (c == '/') {
                symbol.append('_');
            } else if (c == '_') {
                symbol.append("_1");
            } else if (Character.isLetterOrDigit(c) && c < 128) {
                symbol.append(c);
            } else {
                symbol.append(String.format("_0%04x", (int) c));
            }
        }
        return symbol.toString();
    }

    /**
     * @param symbol the name of a C++ function or variable in a library
     * @return the name in the source, such as "talvern::nodeName::set", without parameters; the symbol
     *     itself if that can't be told
     */
    public static String readable(String symbol) {
        Matcher start = CPLUSPLUS.matcher(symbol);
        if (!start.lookingAt()) {
            return symbol;
        }
        List<String> names = new ArrayList<>();
        int at = start.end();
        for (Matcher digits = LENGTH.matcher(symbol); digits.region(at, symbol.length()).lookingAt();) {
            int end = digits.end() + Integer.parseInt(digits.group());
            if (end > symbol.length()) {
                return symbol;
            }
            names.add(symbol.substring(digits.end(), end));
            at = end;
        }
        return names.isEmpty() ? symbol : String.join("::", names);
    }
}
