package com.kvo.talvern.console.check;

import static org.junit.Assert.assertTrue;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Random;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;
import org.junit.ClassRule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;

/**
 * However a jar, a class or a library is damaged, the comparison ends with findings. The system property
 * talvern.damages tells how many damages to try, talvern.damages.first the number of the first.
 */
public class DamagedFilesTest {
    private static final File BUILD = new File(System.getProperty("talvern.build"));
    private static final File JAR = new File(BUILD, "talvern-api.jar");
    private static final File BRIDGE = new File(BUILD, "libtalvernjni.so");
    private static final File PLATFORM = new File(BUILD, Fit.PLATFORM);
    private static final int[] ODD_VALUES = {0, 1, -1, 2, 16, -16, 0x7f, 0x80, 0x7fff, 0x8000, Integer.MAX_VALUE,
        Integer.MIN_VALUE};

    @ClassRule
    public static final TemporaryFolder FOLDER = new TemporaryFolder();

    private final List<Damage> kinds = List.of(this::jar, this::classOfJar, this::bridge, this::platform);
    private final byte[] jar = Files.readAllBytes(JAR.toPath());
    private final byte[] bridge = Files.readAllBytes(BRIDGE.toPath());
    private final byte[] platform = Files.readAllBytes(PLATFORM.toPath());

    /** Compares, with one file damaged at random. */
    private interface Damage {
        Fit fit(Random random) throws IOException;
    }

    public DamagedFilesTest() throws IOException {}

    @Test
    public void areFindings() throws Exception {
        ExecutorService worker = Executors.newSingleThreadExecutor();
        int first = Integer.getInteger("talvern.damages.first", 0);
        int count = Integer.getInteger("talvern.damages", 400);
        int found = 0;
        for (int number = first; number < first + count; ++number) {
            Random random = new Random(number);
            Damage kind = kinds.get(number % kinds.size());
            try {
                Fit fit = worker.submit(() -> kind.fit(random)).get(30, TimeUnit.SECONDS);
                found += fit.findings().isEmpty() ? 0 : 1;
            } catch (ExecutionException | TimeoutException e) {
                throw new AssertionError("damage " + number, e);
            }
        }
        System.out.println(count + " damages, " + found + " found");
        assertTrue("most damages go unseen", found > count / 4);
        worker.shutdown();
    }

    private Fit jar(Random random) throws IOException {
        int listOfEntries = jar.length - 12000;
        return new Fit(List.of(file("damaged.jar", damaged(jar, random, listOfEntries))), BRIDGE, List.of(PLATFORM));
    }

    private Fit classOfJar(Random random) throws IOException {
        ByteArrayOutputStream changed = new ByteArrayOutputStream();
        try (JarFile whole = new JarFile(JAR); ZipOutputStream output = new ZipOutputStream(changed)) {
            List<ZipEntry> entries = whole.stream().filter(entry -> !entry.isDirectory()).collect(Collectors.toList());
            ZipEntry victim = entries.get(random.nextInt(entries.size()));
            output.putNextEntry(new ZipEntry(victim.getName()));
            output.write(damaged(whole.getInputStream(victim).readAllBytes(), random, 0));
        }
        return new Fit(List.of(file("class.jar", changed.toByteArray()), JAR), BRIDGE, List.of(PLATFORM));
    }

    private Fit bridge(Random random) throws IOException {
        return new Fit(List.of(JAR), library("bridge.so", bridge, random), List.of(PLATFORM));
    }

    private Fit platform(Random random) throws IOException {
        return new Fit(List.of(JAR), BRIDGE, List.of(library(Fit.PLATFORM, platform, random)));
    }

    /** Three of four damages are in the header or the tables that the linker uses. */
    private static File library(String name, byte[] content, Random random) throws IOException {
        ByteBuffer header = ByteBuffer.wrap(content).order(ByteOrder.LITTLE_ENDIAN);
        int sections = (int) header.getLong(40);
        List<Integer> tables = new ArrayList<>(List.of(0, sections));
        for (int at = sections; at < sections + header.getShort(60) * 64; at += 64) {
            boolean isSmall = header.getLong(at + 32) < 50000;
            boolean isLoaded = header.getLong(at + 16) != 0;
            if (isSmall && isLoaded) {
                tables.add((int) header.getLong(at + 24));
            }
        }
        int start = random.nextInt(4) == 0 ? 0 : tables.get(random.nextInt(tables.size()));
        return file(name, damaged(content, random, start));
    }

    /** Some damages behind a place, most of them near it. */
    private static byte[] damaged(byte[] content, Random random, int start) {
        byte[] changed = content.clone();
        for (int i = random.nextInt(4); i >= 0; --i) {
            int rest = content.length - 8 - start;
            int at = start + random.nextInt(random.nextInt(4) == 0 ? rest : Math.min(rest, 256));
            int odd = ODD_VALUES[random.nextInt(ODD_VALUES.length)];
            int kind = random.nextInt(6);
            if (kind < 4) { // a number of 1, 2, 4 or 8 bytes
                long value = random.nextInt(4) == 0 ? random.nextInt(content.length) : odd;
                byte[] number = ByteBuffer.allocate(8).order(ByteOrder.LITTLE_ENDIAN).putLong(value).array();
                System.arraycopy(number, 0, changed, at & -(1 << kind), 1 << kind);
            } else if (kind == 4) {
                int length = Math.min(64, content.length - at);
                System.arraycopy(content, random.nextInt(content.length - 64), changed, at, length);
            } else {
                return Arrays.copyOf(changed, random.nextInt(content.length));
            }
        }
        return changed;
    }

    private static File file(String name, byte[] content) throws IOException {
        File file = new File(FOLDER.getRoot(), name);
        Files.write(file.toPath(), content);
        return file;
    }
}
