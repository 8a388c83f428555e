package com.kvo.talvern.internal;

import java.io.EOFException;
import java.io.File;
import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * A native library, read as a file: nothing in it is loaded or run. For the classes of this product only.
 */
public final class ElfLibrary {
    private static final int HEADER = 64;
    private static final int SEGMENT = 56;
    private static final int SECTION = 64;
    private static final int SYMBOL = 24;
    private static final int DYNAMIC = 16;
    private static final int SMALLEST_VERSION = 16;
    private static final int LOCAL = 0;
    private static final int WEAK = 2;
    private static final int NEEDED = 1;
    private static final int OWN_NAME = 14;
    private static final int RPATH = 15;
    private static final int RUNPATH = 29;
    private static final List<String> USED_SECTIONS = Arrays.asList(".dynamic", ".dynsym", ".dynstr", ".gnu.version",
            ".gnu.version_d", ".gnu.version_r", ".talvern");

    /** No library's table is as long; a damaged length must not exhaust the memory. */
    private static final int LONGEST_TABLE = 1 << 24;

    private static final int LONGEST_TEXT = 1 << 16;

    private final File file;
    private final ByteBuffer header;
    private final Map<String, ByteBuffer> sections = new HashMap<>();
    private final Map<Integer, List<String>> links = new HashMap<>();
    private final Map<Short, String> providers = new HashMap<>();
    private final Map<String, Set<String>> neededVersions = new LinkedHashMap<>();
    private final Set<String> versions = new HashSet<>();

    private ElfLibrary(File file, RandomAccessFile content) throws IOException {
        this.file = file;
        header = ByteBuffer.allocate(HEADER);
        if (content.length() < HEADER || content.read(header.array()) < HEADER || header.getInt(0) != 0x7f454c46) {
            throw new IOException(file + " is no native library, or only the beginning of one");
        }
        header.order(header.get(5) == 1 ? ByteOrder.LITTLE_ENDIAN : ByteOrder.BIG_ENDIAN);
        if (is64Bit()) {
            long end = end(content);
            if (end > content.length()) {
                throw new IOException(
                        file + " is truncated: " + content.length() + " of " + end + " bytes are there");
            }
            readSections(content);
            readLinks();
            readNeededVersions();
            readVersions();
        }
    }

    /**
     * @param file the library
     * @return what the file tells about it
     * @throws IOException if it can't be read, is no library, is truncated or damaged; the message says so
     */
    public static ElfLibrary read(File file) throws IOException {
        try (RandomAccessFile content = new RandomAccessFile(file, "r")) {
            return new ElfLibrary(file, content);
        } catch (EOFException | IndexOutOfBoundsException | IllegalArgumentException e) {
            throw new IOException(file + " is damaged: its tables lead out of the file", e);
        }
    }

    /**
     * @return where it was read from
     */
    public File file() {
        return file;
    }

    /**
     * @return the processors that can run it, such as "x86-64"
     */
    public String architecture() {
        switch (header.getShort(18)) {
            case 3:
                return "x86";
            case 40:
                return "32-bit ARM";
            case 62:
                return "x86-64";
            case 183:
                return "AArch64";
            default:
                return "processor type " + header.getShort(18) + (is64Bit() ? " (64 bits)" : " (32 bits)");
        }
    }

    /**
     * @return what it tells about itself, in a section that only the bridge has; empty in other libraries
     */
    public String description() {
        ByteBuffer text = section(".talvern");
        return new String(text.array(), 0, text.limit(), StandardCharsets.UTF_8).split("\0", 2)[0];
    }

    /**
     * @return the names of the libraries that it needs
     */
    public List<String> needed() {
        return links(NEEDED);
    }

    /**
     * @return the name that others need it by; its file's if it has none of its own
     */
    public String name() {
        List<String> names = links(OWN_NAME);
        return names.isEmpty() ? file.getName() : names.get(0);
    }

    /**
     * @return the folders in which the libraries that it needs are looked for after those of LD_LIBRARY_PATH,
     *     separated by colons
     */
    public String runPath() {
        return String.join(":", links(RUNPATH));
    }

    /**
     * @return the folders in which the libraries that it needs, and those that these need, are looked for first
     */
    public String path() {
        return links(RUNPATH).isEmpty() ? String.join(":", links(RPATH)) : "";
    }

    /**
     * @return the names of the versions of each library without which this one can't be loaded
     */
    public Map<String, Set<String>> neededVersions() {
        return Collections.unmodifiableMap(neededVersions);
    }

    /**
     * @return the names of the versions that it offers; empty if its symbols have no versions
     */
    public Set<String> versions() {
        return Collections.unmodifiableSet(versions);
    }

    /**
     * @return the functions and variables that it offers to others
     */
    public Set<String> exports() {
        Set<String> names = new LinkedHashSet<>();
        ByteBuffer symbols = section(".dynsym");
        for (int at = SYMBOL; at + SYMBOL <= symbols.limit(); at += SYMBOL) {
            if (isDefined(symbols, at) && binding(symbols, at) != LOCAL) {
                names.add(textAt(section(".dynstr"), symbols.getInt(at)));
            }
        }
        return names;
    }

    /**
     * @return the functions and variables that it takes from others
     */
    public Set<String> imports() {
        Set<String> names = new LinkedHashSet<>();
        ByteBuffer symbols = section(".dynsym");
        for (int at = SYMBOL; at + SYMBOL <= symbols.limit(); at += SYMBOL) {
            if (!isDefined(symbols, at)) {
                names.add(textAt(section(".dynstr"), symbols.getInt(at)));
            }
        }
        return names;
    }

    /**
     * @param provider the file name of a library that this one needs
     * @return the functions and variables that the provider must offer: those that are not bound to a
     *     version of another library, as all of the C++ runtime are
     */
    public Set<String> importsFrom(String provider) {
        Set<String> names = new LinkedHashSet<>();
        ByteBuffer symbols = section(".dynsym");
        ByteBuffer versionNumbers = section(".gnu.version");
        for (int at = SYMBOL; at + SYMBOL <= symbols.limit(); at += SYMBOL) {
            int place = at / SYMBOL * 2;
            short version = place + 2 <= versionNumbers.limit() ? versionNumbers.getShort(place) : 0;
            if (!isDefined(symbols, at) && binding(symbols, at) != WEAK
                    && providers.getOrDefault(version, provider).equals(provider)) {
                names.add(textAt(section(".dynstr"), symbols.getInt(at)));
            }
        }
        return names;
    }

    private boolean is64Bit() {
        return header.get(4) == 2;
    }

    /** Where the file ends that the tables describe. */
    private long end(RandomAccessFile content) throws IOException {
        long end = header.getLong(40) + (long) count(60) * SECTION;
        long segmentsEnd = header.getLong(32) + (long) count(56) * SEGMENT;
        if (segmentsEnd > content.length()) {
            return segmentsEnd;
        }
        ByteBuffer segments = read(content, header.getLong(32), (long) count(56) * SEGMENT);
        for (int at = 0; at < segments.limit(); at += SEGMENT) {
            end = Math.max(end, segments.getLong(at + 8) + segments.getLong(at + 32));
        }
        return end;
    }

    private int count(int at) {
        return header.getShort(at) & 0xffff;
    }

    private void readSections(RandomAccessFile content) throws IOException {
        ByteBuffer table = read(content, header.getLong(40), (long) count(60) * SECTION);
        if (table.limit() == 0) {
            return; // stripped to the bone
        }
        ByteBuffer names = section(content, table, count(62) * SECTION);
        for (int at = SECTION; at < table.limit(); at += SECTION) {
            String name = textAt(names, table.getInt(at));
            if (USED_SECTIONS.contains(name) && !sections.containsKey(name)) {
                sections.put(name, section(content, table, at));
            }
        }
    }

    private ByteBuffer section(RandomAccessFile content, ByteBuffer table, int at) throws IOException {
        return read(content, table.getLong(at + 24), table.getLong(at + 32));
    }

    private ByteBuffer read(RandomAccessFile content, long position, long size) throws IOException {
        if (position < 0 || size < 0 || size > LONGEST_TABLE || position > content.length() - size) {
            throw new EOFException();
        }
        byte[] bytes = new byte[(int) size];
        content.seek(position);
        content.readFully(bytes);
        return ByteBuffer.wrap(bytes).order(header.order());
    }

    private void readLinks() {
        ByteBuffer dynamic = section(".dynamic");
        for (int at = 0; at + DYNAMIC <= dynamic.limit(); at += DYNAMIC) {
            long tag = dynamic.getLong(at);
            if (tag == NEEDED || tag == OWN_NAME || tag == RPATH || tag == RUNPATH) {
                links.computeIfAbsent((int) tag, key -> new ArrayList<>())
                        .add(textAt(section(".dynstr"), (int) dynamic.getLong(at + 8)));
            }
        }
    }

    private List<String> links(int tag) {
        return Collections.unmodifiableList(links.getOrDefault(tag, Collections.emptyList()));
    }

    /** Which library each version number of a symbol stands for. A record leads to the next, but never in a circle. */
    private void readNeededVersions() {
        ByteBuffer needs = section(".gnu.version_r");
        int left = needs.limit() / SMALLEST_VERSION;
        int library = 0;
        for (int next = left; next != 0; library += next) {
            String name = textAt(section(".dynstr"), needs.getInt(library + 4));
            Set<String> names = neededVersions.computeIfAbsent(name, key -> new LinkedHashSet<>());
            int version = library + needs.getInt(library + 8);
            left = oneLess(left);
            for (int i = needs.getShort(library + 2) & 0xffff; i > 0; --i) {
                left = oneLess(left);
                providers.put(needs.getShort(version + 6), name);
                if ((needs.getShort(version + 4) & WEAK) == 0) {
                    names.add(textAt(section(".dynstr"), needs.getInt(version + 8)));
                }
                version += needs.getInt(version + 12);
            }
            next = needs.getInt(library + 12);
        }
    }

    private void readVersions() {
        ByteBuffer records = section(".gnu.version_d");
        int left = records.limit() / SMALLEST_VERSION;
        int version = 0;
        for (int next = left; next != 0; version += next) {
            left = oneLess(left);
            versions.add(textAt(section(".dynstr"), records.getInt(version + records.getInt(version + 12))));
            next = records.getInt(version + 16);
        }
    }

    private static int oneLess(int left) {
        if (left == 0) {
            throw new IllegalArgumentException("the records lead in a circle");
        }
        return left - 1;
    }

    private ByteBuffer section(String name) {
        return sections.getOrDefault(name, ByteBuffer.allocate(0));
    }

    private static boolean isDefined(ByteBuffer symbols, int at) {
        return symbols.getShort(at + 6) != 0;
    }

    private static int binding(ByteBuffer symbols, int at) {
        return (symbols.get(at + 4) & 0xff) >> 4;
    }

    private static String textAt(ByteBuffer texts, int at) {
        int end = at;
        if (at < 0 || at > texts.limit()) {
            return "";
        }
        while (end < texts.limit() && texts.get(end) != 0 && end - at < LONGEST_TEXT) {
            ++end;
        }
        return new String(texts.array(), at, end - at, StandardCharsets.UTF_8);
    }
}
