package com.kvo.talvern;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URISyntaxException;
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

    /** The functions of the loaded library; null until it is loaded. */
    private static Set<String> functions;

    private NativeLibrary() {}

    /**
     * Loads the native library unless it is loaded already, and makes sure that it has the native methods of
     * the class that calls.
     *
     * @throws UnsatisfiedLinkError if it can't be loaded or lacks one; the message says what is wrong, where
     *     it was looked for, and what to do
     */
    public static synchronized void load() {
        if (functions == null) {
            functions = load(file());
        }
        requireNatives(Thread.currentThread().getStackTrace()[2].getClassName());
    }

    /**
     * Finds the native library and does not load it.
     *
     * @return the file that {@link #load()} takes
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

    private static Set<String> load(File file) {
        ElfLibrary library = LoadFailure.read(file);
        Requirements requirements = new Requirements(library);
        requireSameRelease(file, requirements.version());
        requireClasses(file, requirements.classes());
        try {
            System.load(file.getPath());
        } catch (UnsatisfiedLinkError | RuntimeException e) {
            throw LoadFailure.explain(file, e);
        }
        return library.exports();
    }

    /** Classes that come without the jar and its version are taken as they are. */
    private static void requireSameRelease(File file, String version) {
        String expected = NativeLibrary.class.getPackage().getImplementationVersion();
        if (expected != null && !expected.equals(version)) {
            throw LoadFailure.because(file + " has version " + version + ", but the Java classes in " + jar()
                    + " have version " + expected + ". Install both from the same release.", null);
        }
    }

    private static void requireClasses(File file, Set<String> classes) {
        List<String> missing = new ArrayList<>();
        for (String name : notInJar(classes)) {
            if (NativeLibrary.class.getResource("/" + name + ".class") == null) {
                missing.add(name.replace('/', '.'));
            }
        }
        if (!missing.isEmpty()) {
            throw LoadFailure.because(file + " needs Java classes that are not found where " + jar()
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

    private static void requireNatives(String className) {
        if (!className.startsWith("com.kvo.talvern.")) {
            return;
        }
        List<String> missing = new ArrayList<>();
        try {
            Class<?> caller = Class.forName(className, false, NativeLibrary.class.getClassLoader());
            for (Method method : caller.getDeclaredMethods()) {
                if (Modifier.isNative(method.getModifiers()) && !functions.contains(
                        SymbolNames.ofNative(className.replace('.', '/'), method.getName()))) {
                    missing.add(method.getName());
                }
            }
        } catch (ClassNotFoundException e) {
            return; // a class of the caller's own, from elsewhere
        }
        if (!missing.isEmpty()) {
            throw LoadFailure.because(file() + " has no native method " + String.join(", ", missing) + " of "
                    + className + ", which comes from " + jar() + ". Install both from the same release.", null);
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
        try {
            return source == null ? null : new File(source.getLocation().toURI());
        } catch (URISyntaxException | IllegalArgumentException e) {
            return null;
        }
    }
}
