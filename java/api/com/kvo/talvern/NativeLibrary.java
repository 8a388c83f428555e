package com.kvo.talvern;

import java.io.File;
import java.net.URISyntaxException;
import java.security.CodeSource;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

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

    private static boolean isLoaded;

    private NativeLibrary() {}

    /**
     * Loads the native library unless it is loaded already.
     *
     * @throws UnsatisfiedLinkError if it can't be loaded; the message says what was looked for, where, and
     *     what to do
     */
    public static synchronized void load() {
        if (isLoaded) {
            return;
        }
        Set<File> folders = folders();
        for (File folder : folders) {
            File file = new File(folder, FILE_NAME);
            if (file.isFile()) {
                load(file);
                isLoaded = true;
                return;
            }
        }
        throw new UnsatisfiedLinkError("The Talvern library " + FILE_NAME + " was not found. Looked in: "
                + join(folders) + ". Install it in one of these folders, or name its folder with -D"
                + PATH_PROPERTY + "=FOLDER.");
    }

    private static void load(File file) {
        try {
            System.load(file.getAbsolutePath());
        } catch (UnsatisfiedLinkError e) {
            UnsatisfiedLinkError explained = new UnsatisfiedLinkError("The Talvern library " + file
                    + " was found but can't be loaded: " + e.getMessage()
                    + ". It needs the platform library libtalvern.so.1, with every operation that it calls,"
                    + " in the same folder or on the system's library path.");
            explained.initCause(e);
            throw explained;
        }
    }

    private static Set<File> folders() {
        Set<File> folders = new LinkedHashSet<>();
        String configured = System.getProperty(PATH_PROPERTY);
        if (configured != null) {
            folders.add(new File(configured).getAbsoluteFile());
            return folders;
        }
        File jarFolder = jarFolder();
        if (jarFolder != null) {
            folders.add(jarFolder);
        }
        for (String folder : System.getProperty("java.library.path", "").split(File.pathSeparator)) {
            if (!folder.isEmpty()) {
                folders.add(new File(folder).getAbsoluteFile());
            }
        }
        return folders;
    }

    private static File jarFolder() {
        CodeSource source = NativeLibrary.class.getProtectionDomain().getCodeSource();
        try {
            return source == null ? null : new File(source.getLocation().toURI()).getParentFile();
        } catch (URISyntaxException | IllegalArgumentException e) {
            return null; // not a file: the classes come from somewhere else
        }
    }

    private static String join(Set<File> folders) {
        List<String> names = new ArrayList<>();
        for (File folder : folders) {
            names.add(folder.getPath());
        }
        return String.join(", ", names);
    }
}
