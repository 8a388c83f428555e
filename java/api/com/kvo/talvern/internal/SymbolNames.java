package com.kvo.talvern.internal;

import java.util.ArrayList;
import java.util.List;

/**
 * Names of functions in native libraries. For the classes of this product only.
 */
public final class SymbolNames {
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
        if (!symbol.startsWith("_Z") || symbol.length() < 6) {
            return symbol;
        }
        int at = symbol.charAt(2) == 'T' ? 4 : 2; // _ZTI, _ZTV: what belongs to a class
        if (symbol.charAt(at++) != 'N') {
            return symbol;
        }
        at += symbol.charAt(at) == 'K' ? 1 : 0; // a const member function
        List<String> names = new ArrayList<>();
        while (Character.isDigit(symbol.charAt(at))) {
            int length = 0;
            for (; Character.isDigit(symbol.charAt(at)); ++at) {
                length = length * 10 + Character.digit(symbol.charAt(at), 10);
            }
            names.add(symbol.substring(at, at + length));
            at += length;
        }
        return String.join("::", names);
    }
}
