package com.kvo.talvern;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.LibrarySearch;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collection;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** Tells why the native library can't be loaded and what to do. */
final class LoadFailure {
    private static final String PLATFORM = "libtalvern.so.1";
    private static final Pattern UNDEFINED = Pattern.compile("undefined symbol: (\\w+)");
    private static final Pattern UNMAPPED = Pattern.compile("([^ :]+): failed to map segment");
    private static final Pattern NOT_FOUND = Pattern.compile("([^ :]+): cannot open shared object file");
    private static final Pattern OLD = Pattern.compile("([^ :]+): version `(.+)' not found \\(required by (.+)\\)");

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
    static ElfLibrary read(File bridge) throws IOException {
        String problem = problemOf(bridge);
        if (problem != null) {
            throw because(problem, null);
        }
        ElfLibrary library = ElfLibrary.read(bridge);
        File platform = new LibrarySearch(library).find(PLATFORM);
        if (platform != null) {
            ElfLibrary.read(platform);
        }
        return library;
    }

    /** What to tell instead of what {@code System.load} has thrown. */
    static UnsatisfiedLinkError explain(ElfLibrary bridge, Throwable thrown) throws IOException {
        String message = String.valueOf(thrown.getMessage());
        if (thrown instanceof RuntimeException) { // since Java 24
            return because("this JVM denies native access (" + message
                    + "). Start Java with --enable-native-access=ALL-UNNAMED, or with the name of the module"
                    + " that holds this jar.", thrown);
        }
        if (message.contains("already loaded in another classloader")) {
            return because("another class loader of this program has loaded " + bridge.file() + " already, and a"
                    + " library belongs to one class loader. Put talvern-api.jar where all parts of the program"
                    + " share it, such as the common library folder of an application server.", thrown);
        }
        LibrarySearch search = new LibrarySearch(bridge);
        File found = search.find(PLATFORM);
        String platform = found == null ? PLATFORM : found.getPath();
        Matcher unmapped = UNMAPPED.matcher(message);
        if (unmapped.find()) {
            return because((unmapped.group(1).equals(PLATFORM) ? platform : unmapped.group(1))
                    + " must not be executed: the file system that it lies on is mounted noexec,"
                    + " or a security policy forbids it. Install it in another folder, or mount that file"
                    + " system without noexec.", thrown);
        }
        Matcher undefined = UNDEFINED.matcher(message);
        if (undefined.find()) {
            String symbol = undefined.group(1);
            return because(platform + " lacks " + SymbolNames.readable(symbol) + " (" + symbol + "), which "
                    + bridge.file() + " calls. Install a platform library that fits it; `talvern-console check`"
                    + " tells all that is missing.", thrown);
        }
        Matcher old = OLD.matcher(message);
        if (old.find()) {
            return because(old.group(3) + " needs " + old.group(2) + ", and " + old.group(1) + " is older. Install"
                    + " the build for this system, or a system that is as new.", thrown);
        }
        Matcher notFound = NOT_FOUND.matcher(message);
        if (!notFound.find()) {
            return because(message + ".", thrown);
        }
        String name = notFound.group(1);
        if (found == null) {
            return because(noPlatform(search), thrown);
        }
        String user = bridge.needed().contains(name) ? bridge.file().getPath()
                : ElfLibrary.read(found).needed().contains(name) ? platform : "a library below " + platform;
        return because(name + ", which " + user + " needs, was not found. Install it, or name its folder in the"
                + " environment variable LD_LIBRARY_PATH.", thrown);
    }

    private static String noPlatform(LibrarySearch search) throws IOException {
        for (File platform : search.files(PLATFORM)) {
            String problem = problemOf(platform);
            if (problem != null) {
                return problem;
            }
        }
        return PLATFORM + ", the platform library, was not found. Looked in: " + list(search.folders())
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
        String needed = LibrarySearch.architecture();
        return needed == null || needed.equals(architecture) ? null : file + " is built for " + architecture
                + ", and this JVM for " + needed + ". Install the library's build for " + needed + ".";
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
