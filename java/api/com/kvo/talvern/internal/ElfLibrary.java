package com.kvo.talvern.internal;

import java.io.EOFException;
import java.io.File;
import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.HashMap;
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
    private static final int WEAK = 2;
    private static final List<String> USED_SECTIONS =
            Arrays.asList(".dynsym", ".dynstr", ".gnu.version", ".gnu.version_r", ".talvern");

    private final ByteBuffer header;
    private final Map<String, ByteBuffer> sections = new HashMap<>();

    private ElfLibrary(File file, RandomAccessFile content) throws IOException {
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
        }
    }

    /**
     * @param file the library
     * @return what the file tells about it
     * @throws IOException if it can't be read, is no library or is truncated; the message says so
     */
    public static ElfLibrary read(File file) throws IOException {
        try (RandomAccessFile content = new RandomAccessFile(file, "r")) {
            return new ElfLibrary(file, content);
        } catch (EOFException | IndexOutOfBoundsException | IllegalArgumentException e) {
            throw new IOException(file + " is damaged: its tables lead out of the file", e);
        }
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
        return textAt(section(".talvern"), 0);
    }

    /**
     * @return the functions and variables that it offers to others
     */
    public Set<String> exports() {
        Set<String> names = new LinkedHashSet<>();
        ByteBuffer symbols = section(".dynsym");
        for (int at = SYMBOL; at + SYMBOL <= symbols.limit(); at += SYMBOL) {
            if (isDefined(symbols, at)) {
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
        Map<Short, String> providers = versionProviders();
        Set<String> names = new LinkedHashSet<>();
        ByteBuffer symbols = section(".dynsym");
        ByteBuffer versions = section(".gnu.version");
        for (int at = SYMBOL; at + SYMBOL <= symbols.limit(); at += SYMBOL) {
            boolean isOptional = (symbols.get(at + 4) & 0xff) >> 4 == WEAK;
            short version = at / SYMBOL * 2 < versions.limit() ? versions.getShort(at / SYMBOL * 2) : 0;
            if (!isDefined(symbols, at) && !isOptional
                    && providers.getOrDefault(version, provider).equals(provider)) {
                names.add(textAt(section(".dynstr"), symbols.getInt(at)));
            }
        }
        return names;
    }

    /** Which library each version number of a symbol stands for. */
    private Map<Short, String> versionProviders() {
        Map<Short, String> providers = new HashMap<>();
        ByteBuffer needs = section(".gnu.version_r");
        int library = 0;
        for (int next = needs.limit() == 0 ? 0 : 1; next != 0; library += next) {
            String name = textAt(section(".dynstr"), needs.getInt(library + 4));
            int version = library + needs.getInt(library + 8);
            for (int i = 0; i < needs.getShort(library + 2); ++i) {
                providers.put(needs.getShort(version + 6), name);
                version += needs.getInt(version + 12);
            }
            next = needs.getInt(library + 12);
        }
        return providers;
    }

    private boolean is64Bit() {
        return header.get(4) == 2;
    }

    /** Where the file ends that the tables describe. */
    private long end(RandomAccessFile content) throws IOException {
        long end = header.getLong(40) + (long) header.getShort(60) * SECTION;
        int count = header.getShort(56);
        if (header.getLong(32) + (long) count * SEGMENT > content.length()) {
            return header.getLong(32) + (long) count * SEGMENT;
        }
        ByteBuffer segments = read(content, header.getLong(32), (long) count * SEGMENT);
        for (int at = 0; at < segments.limit(); at += SEGMENT) {
            end = Math.max(end, segments.getLong(at + 8) + segments.getLong(at + 32));
        }
        return end;
    }

    private void readSections(RandomAccessFile content) throws IOException {
        ByteBuffer table = read(content, header.getLong(40), (long) header.getShort(60) * SECTION);
        if (table.limit() == 0) {
            return; // stripped to the bone
        }
        ByteBuffer names = section(content, table, header.getShort(62) * SECTION);
        for (int at = SECTION; at < table.limit(); at += SECTION) {
            String name = textAt(names, table.getInt(at));
            if (USED_SECTIONS.contains(name)) {
                sections.put(name, section(content, table, at));
            }
        }
    }

    private ByteBuffer section(RandomAccessFile content, ByteBuffer table, int at) throws IOException {
        return read(content, table.getLong(at + 24), table.getLong(at + 32));
    }

    private ByteBuffer read(RandomAccessFile content, long position, long size) throws IOException {
        byte[] bytes = new byte[Math.toIntExact(size)];
        content.seek(position);
        content.readFully(bytes);
        return ByteBuffer.wrap(bytes).order(header.order());
    }

    private ByteBuffer section(String name) {
        return sections.getOrDefault(name, ByteBuffer.allocate(0));
    }

    private static boolean isDefined(ByteBuffer symbols, int at) {
        return symbols.getShort(at + 6) != 0;
    }

    private static String textAt(ByteBuffer texts, int at) {
        int end = at;
        if (at < 0 || at > texts.limit()) {
            return "";
        }
        while (end < texts.limit() && texts.get(end) != 0) {
            ++end;
        }
        byte[] text = new byte[end - at];
        ByteBuffer from = texts.duplicate();
        from.position(at);
        from.get(text);
        return new String(text, StandardCharsets.UTF_8);
    }
}
