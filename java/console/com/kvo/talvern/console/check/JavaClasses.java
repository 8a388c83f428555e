package com.kvo.talvern.console.check;

import java.io.ByteArrayInputStream;
import java.io.Closeable;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.jar.JarFile;
import java.util.jar.Manifest;
import java.util.zip.ZipEntry;
import java.util.zip.ZipFile;

/**
 * The classes of some jars and of the JDK, read and not loaded. Names are such as "java/lang/String". What can't be
 * read is an {@link UnreadableFile}.
 */
final class JavaClasses implements Closeable {
    /** No class and no manifest is as large; a damaged or malicious one must not exhaust the memory. */
    private static final int LARGEST_ENTRY = 1 << 24;

    private static final File JDK = new File(System.getProperty("java.home"));

    private final Map<File, ZipFile> jars = new LinkedHashMap<>();
    private final Map<String, JavaClass> classes = new HashMap<>();

    /** Opens the jars, of which the first that has a class counts. */
    JavaClasses(List<File> files) throws IOException {
        for (File file : files) {
            try {
                jars.put(file, new ZipFile(file));
            } catch (IOException | RuntimeException e) {
                close();
                throw new UnreadableFile(file, "is no readable jar: " + e.getMessage(), e);
            }
        }
    }

    @Override
    public void close() throws IOException {
        for (ZipFile jar : jars.values()) {
            jar.close();
        }
    }

    /** The version that the first jar's manifest gives; null if it gives none. */
    String version() {
        File file = jars.keySet().iterator().next();
        byte[] manifest = read(file, JarFile.MANIFEST_NAME);
        try {
            return manifest == null ? null : new Manifest(new ByteArrayInputStream(manifest)).getMainAttributes()
                    .getValue("Implementation-Version");
        } catch (IOException | RuntimeException e) {
            throw new UnreadableFile(file, "has a damaged manifest: " + e.getMessage(), e);
        }
    }

    /** The names of the jars' classes in a folder and below. */
    List<String> namesBelow(String folder) {
        List<String> names = new ArrayList<>();
        jars.forEach((file, jar) -> {
            try {
                jar.stream().map(ZipEntry::getName)
                        .filter(name -> name.startsWith(folder) && name.endsWith(".class"))
                        .forEach(name -> names.add(name.substring(0, name.length() - ".class".length())));
            } catch (RuntimeException e) {
                throw new UnreadableFile(file, "has a damaged list of entries: " + e.getMessage(), e);
            }
        });
        return names;
    }

    /** The class of this name; null if there is none. */
    JavaClass find(String name) {
        return classes.computeIfAbsent(name, this::read);
    }

    private JavaClass read(String name) {
        String entry = name + ".class";
        for (File file : jars.keySet()) {
            byte[] bytes = read(file, entry);
            if (bytes != null) {
                return parse(file, entry, bytes);
            }
        }
        try (InputStream ofJdk = ClassLoader.getPlatformClassLoader().getResourceAsStream(entry)) {
            return ofJdk == null ? null : parse(JDK, entry, ofJdk.readAllBytes());
        } catch (IOException e) {
            throw new UnreadableFile(JDK, "lacks " + entry, e);
        }
    }

    /** An entry's content; null if there is none. */
    private byte[] read(File file, String name) {
        ZipFile jar = jars.get(file);
        try {
            ZipEntry entry = jar.getEntry(name);
            if (entry == null) {
                return null;
            }
            try (InputStream stream = jar.getInputStream(entry)) {
                byte[] bytes = stream.readNBytes(LARGEST_ENTRY);
                if (stream.read() >= 0) {
                    throw new IOException("larger than any class");
                }
                return bytes;
            }
        } catch (IOException | RuntimeException e) {
            throw new UnreadableFile(file, "has a damaged entry " + name + ": " + e.getMessage(), e);
        }
    }

    private static JavaClass parse(File file, String name, byte[] bytes) {
        try {
            return new JavaClass(bytes);
        } catch (IOException | RuntimeException e) {
            throw new UnreadableFile(file, "has a damaged class " + name, e);
        }
    }
}
