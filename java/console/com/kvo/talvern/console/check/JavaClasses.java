package com.kvo.talvern.console.check;

import java.io.Closeable;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.io.UncheckedIOException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.jar.JarFile;
import org.objectweb.asm.ClassReader;
import org.objectweb.asm.Opcodes;

/** The classes of some jars and of the JDK, read and not loaded. Names are such as "java/lang/String". */
final class JavaClasses implements Closeable {
    private final List<JarFile> jars = new ArrayList<>();
    private final Map<String, JavaClass> classes = new HashMap<>();

    /** Opens the jars, of which the first that has a class counts. */
    JavaClasses(List<File> files) throws IOException {
        for (File file : files) {
            try {
                jars.add(new JarFile(file));
            } catch (IOException e) {
                close();
                throw new IOException(file + " is no readable jar: " + e.getMessage(), e);
            }
        }
    }

    @Override
    public void close() throws IOException {
        for (JarFile jar : jars) {
            jar.close();
        }
    }

    /** The version that the first jar's manifest gives; null if it gives none. */
    String version() throws IOException {
        return jars.get(0).getManifest() == null
                ? null : jars.get(0).getManifest().getMainAttributes().getValue("Implementation-Version");
    }

    /** The names of the jars' classes in a folder and below. */
    List<String> namesBelow(String folder) {
        List<String> names = new ArrayList<>();
        for (JarFile jar : jars) {
            jar.stream().map(entry -> entry.getName())
                    .filter(name -> name.startsWith(folder) && name.endsWith(".class"))
                    .forEach(name -> names.add(name.substring(0, name.length() - ".class".length())));
        }
        return names;
    }

    /** The class of this name; null if there is none. */
    JavaClass find(String name) {
        return classes.computeIfAbsent(name, this::read);
    }

    private JavaClass read(String name) {
        String file = name + ".class";
        try {
            for (JarFile jar : jars) {
                if (jar.getEntry(file) != null) {
                    return parse(jar.getInputStream(jar.getEntry(file)));
                }
            }
            InputStream ofJdk = ClassLoader.getPlatformClassLoader().getResourceAsStream(file);
            return ofJdk == null ? null : parse(ofJdk);
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    private static JavaClass parse(InputStream stream) throws IOException {
        try (stream) {
            byte[] bytes = stream.readAllBytes();
            bytes[7] = (byte) Math.min(bytes[7], Opcodes.V11); // newer ones say the same of what is read here
            JavaClass javaClass = new JavaClass();
            new ClassReader(bytes).accept(javaClass, ClassReader.SKIP_CODE | ClassReader.SKIP_DEBUG);
            return javaClass;
        }
    }
}
