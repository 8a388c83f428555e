package com.kvo.talvern.console.check;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.nio.file.Files;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;
import org.junit.ClassRule;
import org.junit.rules.TemporaryFolder;

/** The files of the build, and what the comparison finds where one of them is another one. */
public abstract class ChangedFiles {
    static final File BUILD = new File(System.getProperty("talvern.build"));
    static final File JAR = new File(BUILD, "talvern-api.jar");
    static final File BRIDGE = new File(BUILD, "libtalvernjni.so");
    static final File PLATFORM = new File(BUILD, Fit.PLATFORM);

    @ClassRule
    public static final TemporaryFolder FOLDER = new TemporaryFolder();

    /** The entries of the API's jar. */
    static Map<String, byte[]> entries() throws IOException {
        Map<String, byte[]> entries = new TreeMap<>();
        try (JarFile jar = new JarFile(JAR)) {
            for (ZipEntry entry : jar.stream().collect(Collectors.toList())) {
                entries.put(entry.getName(), jar.getInputStream(entry).readAllBytes());
            }
        }
        return entries;
    }

    static List<Finding> compareJars(File... jars) {
        return new Fit(List.of(jars), BRIDGE, List.of(PLATFORM)).findings();
    }

    static List<Finding> compareLibraries(File bridge, File platform) {
        return new Fit(List.of(JAR), bridge, List.of(platform)).findings();
    }

    static File file(String name, byte[] content) throws IOException {
        return Files.write(FOLDER.getRoot().toPath().resolve(name), content).toFile();
    }

    static File jar(Map<String, byte[]> content) throws IOException {
        File file = new File(FOLDER.getRoot(), "changed.jar");
        try (ZipOutputStream jar = new ZipOutputStream(new FileOutputStream(file))) {
            for (Map.Entry<String, byte[]> entry : content.entrySet()) {
                jar.putNextEntry(new ZipEntry(entry.getKey()));
                jar.write(entry.getValue());
            }
        }
        return file;
    }
}
