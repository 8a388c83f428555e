package com.kvo.talvern.testing;

import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.Value;
import java.io.ByteArrayOutputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.util.AbstractMap;
import java.util.AbstractSet;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Random;
import java.util.Set;
import java.util.TreeMap;

/** Configuration values: random, deep, large, and such as the bridge must withstand. */
public final class Values {
    private static final String[] TEXTS = {"", "a", "b", "ab", "A", "\0", "ä", "ß\n", "€uro", "\uD83D\uDE00",
        "a rather long text that no short string can hold"};

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
                Map<String, Value> sorted = new TreeMap<>(Values::compareBytes);
                for (int size = random.nextInt(6); size > 0; size--) {
                    String key = text(random);
                    Value[] member = random(random, levels - 1);
                    entries.add(new AbstractMap.SimpleEntry<>(key, member[0]));
                    sorted.put(key, member[1]);
                }
                StructValue sameStruct = new StructValue(mu);
                sorted.forEach(sameStruct::put);
                return new Value[] {new Entries(mu, entries.iterator()), sameStruct};
        }
    }

    private static String text(Random random) {
        return TEXTS[random.nextInt(TEXTS.length)] + TEXTS[random.nextInt(2)];
    }

    private static int compareBytes(String left, String right) {
        return Arrays.compareUnsigned(modifiedUtf8(left), modifiedUtf8(right));
    }

    private static byte[] modifiedUtf8(String text) {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        try {
            new DataOutputStream(bytes).writeUTF(text);
        } catch (IOException e) {
            throw new AssertionError(e);
        }
        return Arrays.copyOfRange(bytes.toByteArray(), 2, bytes.size());
    }

    /** A text below `levels - 1` structures and lists. */
    public static Value nested(int levels) {
        Value value = new SimpleValue("innermost", false);
        for (int level = 1; level < levels; level++) {
            if (level % 2 == 0) {
                StructValue outer = new StructValue(false);
                outer.put("inner", value);
                value = outer;
            } else {
                ArrayValue outer = new ArrayValue(false);
                outer.add(value);
                value = outer;
            }
        }
        return value;
    }

    /** A structure with itself in a list. */
    public static Value inItself() {
        StructValue value = new StructValue(false);
        ArrayValue array = new ArrayValue(false);
        array.add(value);
        value.put("self", array);
        return value;
    }

    /** A list of structures of four members each; `count` values in all. */
    public static Value large(int count) {
        ArrayValue array = new ArrayValue(false);
        for (int i = 1; i < count; i += 5) {
            StructValue struct = new StructValue(true);
            for (int member = 0; member < 4; member++) {
                struct.put("key" + member, new SimpleValue("text " + i, false));
            }
            array.add(struct);
        }
        return array;
    }

    /** Whether both values are equal. */
    public static boolean areEqual(Value left, Value right) {
        return left == null ? right == null : left.equals(right);
    }

    /** A member of a structure that is not as it should be. */
    public static Value faulty(String fault) {
        StructValue value = new StructValue(false);
        value.put("first", new SimpleValue("good", false));
        value.put("second", member(fault));
        value.put("third", new SimpleValue("good", false));
        return value;
    }

    @SuppressWarnings({"unchecked", "rawtypes"})
    private static Set<Map.Entry<String, Value>> withNumberAsKey() {
        return (Set) Collections.singletonMap(7, null).entrySet();
    }

    private static Value member(String fault) {
        switch (fault) {
            case "unknown kind":
                return new Value(true) {};
            case "null text":
                return new SimpleValue("", false) {
                    @Override
                    public String getValue() {
                        return null;
                    }
                };
            case "throwing text":
                return new SimpleValue("", false) {
                    @Override
                    public String getValue() {
                        throw new IllegalStateException("getValue");
                    }
                };
            case "throwing flag":
                return new SimpleValue("text", true) {
                    @Override
                    public boolean getMU() {
                        throw new IllegalStateException("getMU");
                    }
                };
            case "null iterator":
                return new Elements(null);
            case "throwing iterator":
                return new ArrayValue(false) {
                    @Override
                    public Iterator<Value> iterator() {
                        throw new IllegalStateException("iterator");
                    }
                };
            case "throwing next":
                return new Elements(new Endless());
            case "null entry set":
                return new StructValue(false) {
                    @Override
                    public Set<Map.Entry<String, Value>> entrySet() {
                        return null;
                    }
                };
            case "null set iterator":
                return new Entries(false, null);
            case "null entry":
                return new Entries(false, Collections.<Map.Entry<String, Value>>singletonList(null).iterator());
            case "null key":
                return new Entries(false, Collections.<Map.Entry<String, Value>>singletonList(
                        new AbstractMap.SimpleEntry<>(null, null)).iterator());
            case "number as key":
                return new Entries(false, withNumberAsKey().iterator());
            default:
                throw new NoSuchElementException(fault);
        }
    }

    /** A structure whose entries come from an iterator. */
    private static final class Entries extends StructValue {
        private final Iterator<Map.Entry<String, Value>> iterator;

        Entries(boolean mu, Iterator<Map.Entry<String, Value>> iterator) {
            super(mu);
            this.iterator = iterator;
        }

        @Override
        public Set<Map.Entry<String, Value>> entrySet() {
            return new AbstractSet<Map.Entry<String, Value>>() {
                @Override
                public Iterator<Map.Entry<String, Value>> iterator() {
                    return iterator;
                }

                @Override
                public int size() {
                    return 0;
                }
            };
        }
    }

    /** A list whose elements come from an iterator. */
    private static final class Elements extends ArrayValue {
        private final Iterator<Value> iterator;

        Elements(Iterator<Value> iterator) {
            super(false);
            this.iterator = iterator;
        }

        @Override
        public Iterator<Value> iterator() {
            return iterator;
        }
    }

    /** Always promises one more and never gives it. */
    private static final class Endless implements Iterator<Value> {
        @Override
        public boolean hasNext() {
            return true;
        }

        @Override
        public Value next() {
            throw new IllegalStateException("next");
        }
    }
}
