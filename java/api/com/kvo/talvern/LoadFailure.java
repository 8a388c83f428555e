package com.kvo.talvern;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collection;
import java.util.List;

/** Tells why the native library can't be loaded and what to do. */
final class LoadFailure {
    private static final String PLATFORM = "libtalvern.so.1";
    private static final File RUNNING_PROGRAM = new File("/proc/self/exe");
    private static final String UNDEFINED = "undefined symbol: ";

    private LoadFailure() {}

    static UnsatisfiedLinkError because(String cause, Throwable thrown) {
        UnsatisfiedLinkError error = new UnsatisfiedLinkError("The Talvern library can't be loaded: " + cause);
        error.initCause(thrown);
        return error;
    }

    static UnsatisfiedLinkError notFound(String fileName, Collection<File> folders) {
        return because(fileName + " was not found. Looked in: " + list(folders)
                + ". Install it in one of these folders, or name its folder with -D"
                + NativeLibrary.PATH_PROPERTY + "=FOLDER.", null);
    }

    /**
     * Reads the bridge's file, and stops where the JVM would explain badly or would not survive: it ends
     * when the bridge's file or the platform's is truncated.
     */
    static ElfLibrary read(File bridge) {
        try {
            String problem = problemOf(bridge);
            if (problem != null) {
                throw because(problem, null);
            }
            for (File platform : platforms(bridge)) {
                if (problemOf(platform) == null) {
                    break; // the linker, too, takes the first that it may read and that fits the processor
                }
            }
            return ElfLibrary.read(bridge);
        } catch (IOException e) {
            throw because(e.getMessage() + ". Install it again.", e);
        }
    }

    /** What to tell instead of what {@code System.load} has thrown. */
    static UnsatisfiedLinkError explain(File bridge, Throwable thrown) {
        String message = String.valueOf(thrown.getMessage());
        if (thrown instanceof RuntimeException) { // since Java 24
            return because("this JVM denies native access (" + message
                    + "). Start Java with --enable-native-access=ALL-UNNAMED, or with the name of the module"
                    + " that holds this jar.", thrown);
        }
        if (message.contains("already loaded in another classloader")) {
            return because("another class loader of this program has loaded " + bridge + " already, and a"
                    + " library belongs to one class loader. Put talvern-api.jar where all parts of the program"
                    + " share it, such as the common library folder of an application server.", thrown);
        }
        if (message.contains("failed to map segment")) {
            File file = message.contains(PLATFORM + ": failed") ? firstPlatform(bridge) : bridge;
            return because(file + " must not be executed: the file system that it lies on is mounted noexec,"
                    + " or a security policy forbids it. Install it in another folder, or mount that file"
                    + " system without noexec.", thrown);
        }
        if (message.contains(UNDEFINED)) {
            String symbol = message.substring(message.indexOf(UNDEFINED) + UNDEFINED.length()).split("\\W")[0];
            return because(firstPlatform(bridge) + " lacks " + SymbolNames.readable(symbol) + " (" + symbol
                    + "), which " + bridge + " calls. Install a platform library that fits"
                    + " it; `talvern-console check` tells all that is missing.", thrown);
        }
        if (message.contains(PLATFORM + ": ")) {
            return because(noPlatform(bridge), thrown);
        }
        return because(message + ".", thrown);
    }

    private static String noPlatform(File bridge) {
        for (File platform : platforms(bridge)) {
            try {
                return problemOf(platform);
            } catch (IOException e) {
                return e.getMessage();
            }
        }
        return PLATFORM + ", the platform library, was not found. Looked in: " + list(platformFolders(bridge))
                + ", and the system's library folders. Install it in one of them, or name its folder in the"
                + " environment variable LD_LIBRARY_PATH.";
    }

    /** What is wrong with a file as it lies there; null if nothing can be seen. */
    private static String problemOf(File file) throws IOException {
        if (!file.canRead()) {
            return "the user " + System.getProperty("user.name") + " has no permission to read " + file
                    + ". Allow it with `chmod a+r`.";
        }
        String architecture = ElfLibrary.read(file).architecture();
        String needed =
                RUNNING_PROGRAM.canRead() ? ElfLibrary.read(RUNNING_PROGRAM).architecture() : architecture;
        return architecture.equals(needed) ? null : file + " is built for " + architecture + ", and this JVM for "
                + needed + ". Install the library's build for " + needed + ".";
    }

    private static File firstPlatform(File bridge) {
        List<File> platforms = platforms(bridge);
        return platforms.isEmpty() ? new File(PLATFORM) : platforms.get(0);
    }

    private static List<File> platforms(File bridge) {
        List<File> files = new ArrayList<>();
        for (File folder : platformFolders(bridge)) {
            File file = new File(folder, PLATFORM);
            if (file.isFile()) {
                files.add(file);
            }
        }
        return files;
    }

    /** Where the linker looks first, in its order. */
    private static List<File> platformFolders(File bridge) {
        List<File> folders = new ArrayList<>();
        String configured = System.getenv("LD_LIBRARY_PATH");
        for (String folder : (configured == null ? "" : configured).split(File.pathSeparator)) {
            if (!folder.isEmpty()) {
                folders.add(new File(folder));
            }
        }
        folders.add(bridge.getParentFile());
        return folders;
    }

    private static String list(Collection<File> folders) {
        List<String> names = new ArrayList<>();
        for (File folder : folders) {
            boolean isClosed = folder.isDirectory() && !folder.canExecute();
            names.add(folder + (isClosed ? " (which this user may not enter)" : ""));
        }
        return String.join(", ", names);
    }
}
