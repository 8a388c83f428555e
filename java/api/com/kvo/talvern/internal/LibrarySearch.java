package com.kvo.talvern.internal;

import java.io.File;
import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/**
 * Where the dynamic linker finds the libraries that a library needs, told without loading any: the same folders in
 * the same order. For the classes of this product only.
 */
public final class LibrarySearch {
    private static final File RUNNING_PROGRAM = new File("/proc/self/exe");
    private static final File CACHE = new File("/etc/ld.so.cache");
    private static final String CACHE_START = "glibc-ld.so.cache1.1";
    private static final int CACHE_HEADER = 48;
    private static final int CACHE_ENTRY = 24;
    private static final int LARGEST_CACHE = 1 << 24;
    private static final List<File> SYSTEM_FOLDERS = systemFolders();

    private final ElfLibrary library;
    private final Set<File> inherited = new LinkedHashSet<>();
    private final Set<File> folders = new LinkedHashSet<>();

    /**
     * @param bridge a library that the JVM loads, by its real path
     * @throws IOException if this path can't be told
     */
    public LibrarySearch(ElfLibrary bridge) throws IOException {
        this(bridge, bridge.file().getCanonicalFile().getParentFile(), programFolders());
    }

    /**
     * @param library a library that the linker loads
     * @param loader the search for the one that needs it
     */
    public LibrarySearch(ElfLibrary library, LibrarySearch loader) {
        this(library, library.file().getAbsoluteFile().getParentFile(), loader.inherited);
    }

    private LibrarySearch(ElfLibrary library, File folder, Set<File> pathsOfLoaders) {
        this.library = library;
        inherited.addAll(split(library.path(), folder));
        inherited.addAll(pathsOfLoaders);
        if (library.runPath().isEmpty()) {
            folders.addAll(inherited);
        }
        String configured = System.getenv("LD_LIBRARY_PATH");
        folders.addAll(split(configured == null ? "" : configured.replace(';', ':'), folder));
        folders.addAll(split(library.runPath(), folder));
    }

    /**
     * @return the architecture of the JVM that runs this; null if it can't be told
     */
    public static String architecture() {
        try {
            return RUNNING_PROGRAM.canRead() ? ElfLibrary.read(RUNNING_PROGRAM).architecture() : null;
        } catch (IOException e) {
            return null;
        }
    }

    /**
     * @return the library whose needs are looked for
     */
    public ElfLibrary library() {
        return library;
    }

    /**
     * @return the folders that are looked in before the system's
     */
    public Set<File> folders() {
        return Collections.unmodifiableSet(folders);
    }

    /**
     * @param name a library's file name
     * @return all files of this name that lie where the linker looks, in its order
     */
    public List<File> files(String name) {
        Set<File> files = new LinkedHashSet<>();
        folders.forEach(folder -> files.add(new File(folder, name)));
        files.addAll(cached(name));
        SYSTEM_FOLDERS.forEach(folder -> files.add(new File(folder, name)));
        files.removeIf(file -> !file.isFile());
        return new ArrayList<>(files);
    }

    /**
     * @param name a library's file name
     * @return the file of this name that the linker takes: the first that it may read and that is not for other
     *     processors, be it damaged or not; null if there is none
     */
    public File find(String name) {
        return files(name).stream().filter(file -> file.canRead() && !isForeign(file)).findFirst().orElse(null);
    }

    private boolean isForeign(File file) {
        try {
            return !ElfLibrary.read(file).architecture().equals(library.architecture());
        } catch (IOException e) {
            return false;
        }
    }

    private static Set<File> programFolders() {
        try {
            ElfLibrary program = ElfLibrary.read(RUNNING_PROGRAM.getCanonicalFile());
            return split(program.path(), program.file().getParentFile());
        } catch (IOException e) {
            return Collections.emptySet();
        }
    }

    /** An empty name stands for the current folder, but an empty path for none. */
    private static Set<File> split(String path, File origin) {
        Set<File> folders = new LinkedHashSet<>();
        if (!path.isEmpty()) {
            for (String folder : path.split(":", -1)) {
                String name = folder.replaceFirst("^\\$(ORIGIN|\\{ORIGIN})(?=/|$)", "");
                folders.add(name.equals(folder) ? new File(name).getAbsoluteFile() : new File(origin + name));
            }
        }
        return folders;
    }

    private static List<File> systemFolders() {
        String processor = System.getProperty("os.arch").replace("amd64", "x86_64").replace("ppc64le", "powerpc64le");
        List<File> folders = new ArrayList<>();
        for (String name : new String[] {"lib/" + processor + "-linux-gnu", "lib64", "lib"}) {
            folders.add(new File("/" + name));
            folders.add(new File("/usr/" + name));
        }
        return folders;
    }

    /** What the linker's own list says, which `ldconfig` writes from the folders of /etc/ld.so.conf. */
    private static List<File> cached(String name) {
        List<File> files = new ArrayList<>();
        try (RandomAccessFile file = new RandomAccessFile(CACHE, "r")) {
            byte[] bytes = new byte[(int) Math.min(file.length(), LARGEST_CACHE)];
            file.readFully(bytes);
            String content = new String(bytes, StandardCharsets.ISO_8859_1);
            int start = content.indexOf(CACHE_START); // behind a list in an older form, or at once
            ByteBuffer cache = ByteBuffer.wrap(bytes).order(ByteOrder.nativeOrder());
            int end = start + CACHE_HEADER + cache.getInt(start + CACHE_START.length()) * CACHE_ENTRY;
            for (int at = start + CACHE_HEADER; at < end; at += CACHE_ENTRY) {
                boolean isForAllProcessors = cache.getLong(at + 16) == 0;
                if (isForAllProcessors && content.startsWith(name + "\0", start + cache.getInt(at + 4))) {
                    int path = start + cache.getInt(at + 8);
                    files.add(new File(content.substring(path, content.indexOf('\0', path))));
                }
            }
        } catch (IOException | IndexOutOfBoundsException e) {
            return files; // there is none that the linker could use
        }
        return files;
    }
}
