package com.kvo.talvern.testing;

import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.Value;
import java.util.AbstractMap;
import java.util.AbstractSet;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Random;
import java.util.Set;
import java.util.TreeMap;
import java.util.function.Supplier;
import java.util.stream.Stream;

/** Configuration values: random, deep, repeated, and such as the bridge must withstand. */
public final class Values {
    private static final String[] TEXTS = {"", "a", "b", "ab", "A", "\0", "ä", "ß\n", "€uro", "\uD83D\uDE00",
        "a rather long text that no short string can hold"};

    /** The order of the keys' bytes, in which a zero stands behind all of ASCII. */
    private static final Comparator<String> AS_BYTES = Comparator.comparing(text -> text.replace('\0', '\u007f'));

    private Values() {}

    /** A tree made from the number, and how it comes back: without repeated keys, and in order of the keys. */
    public static Value[] random(long number) {
        return random(new Random(number), 5);
    }

    private static Value[] random(Random random, int levels) {
        boolean mu = random.nextBoolean();
        switch (random.nextInt(levels > 1 ? 4 : 2)) {
            case 0:
                return new Value[] {null, null};
            case 1:
                Value simple = new SimpleValue(text(random), mu);
                return new Value[] {simple, simple};
            case 2:
                ArrayValue array = new ArrayValue(mu);
                ArrayValue sameArray = new ArrayValue(mu);
                for (int size = random.nextInt(5); size > 0; size--) {
                    Value[] element = random(random, levels - 1);
                    array.add(element[0]);
                    sameArray.add(element[1]);
                }
                return new Value[] {array, sameArray};
            default:
                List<Map.Entry<String, Value>> entries = new ArrayList<>();
                Map<String, Value> sorted = new TreeMap<>(AS_BYTES);
                for (int size = random.nextInt(6); size > 0; size--) {
                    String key = text(random);
                    Value[] member = random(random, levels - 1);
                    entries.add(new AbstractMap.SimpleEntry<>(key, member[0]));
                    sorted.put(key, member[1]);
                }
                StructValue sameStruct = new StructValue(mu);
                sorted.forEach(sameStruct::put);
                return new Value[] {new Entries(mu, setOf(entries.iterator())), sameStruct};
        }
    }

    private static String text(Random random) {
        return TEXTS[random.nextInt(TEXTS.length)] + TEXTS[random.nextInt(2)];
    }

    private static StructValue struct(String key, Value member) {
        StructValue value = new StructValue(false);
        value.put(key, member);
        return value;
    }

    private static ArrayValue array(Value... elements) {
        ArrayValue value = new ArrayValue(false);
        Stream.of(elements).forEach(value::add);
        return value;
    }

    /** A text below `levels - 1` structures and lists. */
    public static Value nested(int levels) {
        Value value = new SimpleValue("innermost", false);
        for (int level = 1; level < levels; level++) {
            value = level % 2 == 0 ? struct("inner", value) : array(value);
        }
        return value;
    }

    /** Lists of two elements each, which are the same: 2^(levels - 1) times a text under a key. */
    public static Value doubled(int levels, String text) {
        Value value = struct(text, new SimpleValue(text, false));
        for (int level = 1; level < levels; level++) {
            value = array(value, value);
        }
        return value;
    }

    /** A structure with a member that is not as it should be. */
    public static Value faulty(String fault) {
        StructValue value = struct("first", new SimpleValue("good", false));
        value.put("second", member(fault));
        value.put("third", new SimpleValue("good", false));
        return value;
    }

    @SuppressWarnings({"unchecked", "rawtypes"})
    private static Value member(String fault) {
        switch (fault) {
            case "unknown kind":
                return new Value(true) {};
            case "null text":
                return new SimpleValue("text", true) {
                    @Override
                    public String getValue() {
                        return null;
                    }
                };
            case "null iterator":
                return new Elements(() -> null);
            case "throwing next":
                return new Elements(() -> (Endless) () -> {
                    throw new IllegalStateException("next");
                });
            case "null entry set":
                return new Entries(false, null);
            case "null set iterator":
                return new Entries(false, setOf(null));
            case "null entry":
                return new Entries(false, Collections.singleton(null));
            case "null key":
                return new Entries(false, Collections.<String, Value>singletonMap(null, null).entrySet());
            case "number as key":
                return new Entries(false, (Set) Collections.singletonMap(7, null).entrySet());
            default:
                throw new NoSuchElementException(fault);
        }
    }

    /** A list whose iterator is asked for. */
    private static final class Elements extends ArrayValue {
        private final Supplier<Iterator<Value>> iterator;

        Elements(Supplier<Iterator<Value>> iterator) {
            super(false);
            this.iterator = iterator;
        }

        @Override
        public Iterator<Value> iterator() {
            return iterator.get();
        }
    }

    /** Always promises one more. */
    private interface Endless extends Iterator<Value> {
        @Override
        default boolean hasNext() {
            return true;
        }
    }

    /** A structure with these entries. */
    private static final class Entries extends StructValue {
        private final Set<Map.Entry<String, Value>> entries;

        Entries(boolean mu, Set<Map.Entry<String, Value>> entries) {
            super(mu);
            this.entries = entries;
        }

        @Override
        public Set<Map.Entry<String, Value>> entrySet() {
            return entries;
        }
    }

    /** A set of what the iterator gives, once, even repeatedly. */
    private static <T> Set<T> setOf(Iterator<T> iterator) {
        return new AbstractSet<T>() {
            @Override
            public Iterator<T> iterator() {
                return iterator;
            }

            @Override
            public int size() {
                return 0;
            }
        };
    }
}
