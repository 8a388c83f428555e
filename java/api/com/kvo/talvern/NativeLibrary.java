package com.kvo.talvern;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URISyntaxException;
import java.net.URL;
import java.security.CodeSource;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.zip.ZipFile;

/**
 * Loads the native half of this API, once per class loader. Every class with native methods does so when it
 * is first used.
 *
 * <p>The library is taken from the folder that the system property {@value #PATH_PROPERTY} names; without
 * it, from the folder of this jar or else from one of {@code java.library.path}.
 */
public final class NativeLibrary {
    /** The system property that names the folder with the native library. */
    public static final String PATH_PROPERTY = "talvern.library.path";

    private static final String FILE_NAME = System.mapLibraryName("talvernjni");

    /** The library, once it is loaded. */
    private static ElfLibrary loaded;

    private static Set<String> functions;

    private final UnsatisfiedLinkError failure;

    private NativeLibrary(UnsatisfiedLinkError failure) {
        this.failure = failure;
    }

    /**
     * Loads the native library unless it is loaded already, and makes sure that it has the native methods of a class.
     * A failure is kept for {@link #require()}: thrown from the class's static initialiser, it would be seen at the
     * first use only, and all others would be answered with a bare {@code NoClassDefFoundError}.
     *
     * @param user the class
     * @return what the class asks whenever it is used
     */
    public static synchronized NativeLibrary load(Class<?> user) {
        try {
            if (loaded == null) {
                ElfLibrary library = load(file());
                functions = library.exports();
                loaded = library;
            }
            requireNatives(user);
            return new NativeLibrary(null);
        } catch (UnsatisfiedLinkError e) {
            return new NativeLibrary(e);
        } catch (IOException e) {
            return new NativeLibrary(LoadFailure.because(e.getMessage() + ". Install it again.", e));
        } catch (RuntimeException | LinkageError e) {
            return new NativeLibrary(LoadFailure.because(e + ".", e));
        }
    }

    /**
     * Makes sure that the class can be used.
     *
     * @throws UnsatisfiedLinkError if the library can't be loaded or lacks a native method of the class; the message
     *     says what is wrong, where it was looked for, and what to do
     */
    public void require() {
        if (failure != null) {
            UnsatisfiedLinkError error = new UnsatisfiedLinkError(failure.getMessage());
            error.initCause(failure.getCause());
            throw error;
        }
    }

    /**
     * Finds the native library and does not load it.
     *
     * @return the file that {@link #load} takes
     * @throws UnsatisfiedLinkError if there is none; the message says where it was looked for
     */
    public static File file() {
        Set<File> folders = folders();
        for (File folder : folders) {
            File file = new File(folder, FILE_NAME);
            if (file.isFile()) {
                return file;
            }
        }
        throw LoadFailure.notFound(FILE_NAME, folders);
    }

    private static ElfLibrary load(File file) throws IOException {
        ElfLibrary library = LoadFailure.read(file);
        Requirements requirements = new Requirements(library);
        requireSameRelease(file, requirements.version());
        requireClasses(file, requirements.classes());
        try {
            System.load(file.getPath());
        } catch (UnsatisfiedLinkError | RuntimeException e) {
            throw LoadFailure.explain(library, e);
        }
        return library;
    }

    /** Classes that come without the jar and its version are taken as they are. */
    private static void requireSameRelease(File file, String version) {
        Package api = NativeLibrary.class.getPackage(); // which not every class loader defines
        String expected = api == null ? null : api.getImplementationVersion();
        if (expected != null && !expected.equals(version)) {
            throw LoadFailure.because(file + " has version " + version + ", but the Java classes in " + origin()
                    + " have version " + expected + ". Install both from the same release.", null);
        }
    }

    private static void requireClasses(File file, Set<String> classes) {
        List<String> missing = new ArrayList<>();
        for (String name : notInJar(classes)) {
            String className = name.replace('/', '.');
            try {
                Class.forName(className, false, NativeLibrary.class.getClassLoader());
            } catch (ClassNotFoundException | LinkageError e) {
                missing.add(className);
            }
        }
        if (!missing.isEmpty()) {
            throw LoadFailure.because(file + " needs Java classes that are not found where " + origin()
                    + " is loaded from: " + String.join(", ", missing)
                    + ". Use the complete jar of the same release.", null);
        }
    }

    /** The classes that have to be looked for elsewhere, which takes long: through all class loaders. */
    private static List<String> notInJar(Set<String> classes) {
        List<String> others = new ArrayList<>(classes);
        File jar = jar();
        if (jar != null && jar.isFile()) {
            try (ZipFile content = new ZipFile(jar)) {
                others.removeIf(name -> content.getEntry(name + ".class") != null);
            } catch (IOException e) {
                return others; // the class loaders have the last word
            }
        }
        return others;
    }

    private static void requireNatives(Class<?> user) {
        List<String> missing = new ArrayList<>();
        for (Method method : user.getDeclaredMethods()) {
            if (Modifier.isNative(method.getModifiers()) && !functions.contains(
                    SymbolNames.ofNative(user.getName().replace('.', '/'), method.getName()))) {
                missing.add(method.getName());
            }
        }
        if (!missing.isEmpty()) {
            throw LoadFailure.because(loaded.file() + " has no native method " + String.join(", ", missing) + " of "
                    + user.getName() + ", which comes from " + origin() + ". Install both from the same release.", null);
        }
    }

    private static Set<File> folders() {
        Set<File> folders = new LinkedHashSet<>();
        String configured = System.getProperty(PATH_PROPERTY);
        if (configured != null) {
            folders.add(new File(configured).getAbsoluteFile());
            return folders;
        }
        File jar = jar();
        if (jar != null) {
            folders.add(jar.getParentFile());
        }
        for (String folder : System.getProperty("java.library.path", "").split(File.pathSeparator)) {
            if (!folder.isEmpty()) {
                folders.add(new File(folder).getAbsoluteFile());
            }
        }
        return folders;
    }

    /** The jar or folder that the Java classes come from; null if they are not loaded from a file. */
    private static File jar() {
        CodeSource source = NativeLibrary.class.getProtectionDomain().getCodeSource();
        URL location = source == null ? null : source.getLocation();
        try {
            return location == null ? null : new File(location.toURI());
        } catch (URISyntaxException | IllegalArgumentException e) {
            return null;
        }
    }

    private static String origin() {
        File jar = jar();
        return jar == null ? "the class loader " + NativeLibrary.class.getClassLoader() : jar.getPath();
    }
}
