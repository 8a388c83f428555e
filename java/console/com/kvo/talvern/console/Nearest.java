package com.kvo.talvern.console;

import java.util.Collection;
import java.util.Comparator;

/** Finds what was meant by a word that is mistyped. */
final class Nearest {
    private Nearest() {}

    /** The end of a sentence that says which of the known words may be meant. */
    static String hint(String word, Collection<String> known) {
        int farthest = Math.max(2, word.length() / 3);
        return known.stream().filter(other -> distance(word, other) <= farthest)
                .min(Comparator.comparingInt(other -> distance(word, other)))
                .map(other -> "; did you mean `" + other + "`?").orElse(".");
    }

    /** How many characters have to be put in, taken out or replaced to make one word of the other; 1 for its beginning. */
    private static int distance(String word, String other) {
        if (!word.isEmpty() && other.startsWith(word)) {
            return 1;
        }
        int[] row = new int[other.length() + 1];
        for (int j = 0; j < row.length; ++j) {
            row[j] = j;
        }
        for (int i = 1; i <= word.length(); ++i) {
            int diagonal = row[0];
            row[0] = i;
            for (int j = 1; j < row.length; ++j) {
                int replaced = diagonal + (Character.toLowerCase(word.charAt(i - 1))
                        == Character.toLowerCase(other.charAt(j - 1)) ? 0 : 1);
                diagonal = row[j];
                row[j] = Math.min(replaced, Math.min(row[j - 1], row[j]) + 1);
            }
        }
        return row[row.length - 1];
    }
}
