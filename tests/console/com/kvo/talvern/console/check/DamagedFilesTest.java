package com.kvo.talvern.console.check;

import static org.junit.Assert.assertTrue;

import java.io.File;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.Random;
import org.junit.Test;

/**
 * However a jar, a class or a library is damaged, the comparison ends with findings. The system property
 * talvern.damages tells how many damages to try, talvern.damages.first the number of the first.
 */
public class DamagedFilesTest extends ChangedFiles {
    private static final int[] ODD_VALUES = {0, 1, -1, 2, 16, -16, 0x7f, 0x80, 0x7fff, 0x8000, Integer.MAX_VALUE,
        Integer.MIN_VALUE};

    private final Map<String, byte[]> entries = entries();
    private final byte[] jar = Files.readAllBytes(JAR.toPath());
    private final byte[] bridge = Files.readAllBytes(BRIDGE.toPath());
    private final byte[] platform = Files.readAllBytes(PLATFORM.toPath());

    public DamagedFilesTest() throws IOException {}

    @Test(timeout = 300_000)
    public void areFindings() {
        int first = Integer.getInteger("talvern.damages.first", 0);
        int count = Integer.getInteger("talvern.damages", 100);
        int found = 0;
        for (int number = first; number < first + count; ++number) {
            try {
                found += findings(number).isEmpty() ? 0 : 1;
            } catch (Throwable e) {
                throw new AssertionError("damage " + number, e);
            }
        }
        System.out.println(count + " damages, " + found + " found");
        assertTrue("most damages go unseen", found > count / 4);
    }

    /** With one file damaged at random. */
    private List<Finding> findings(int number) throws IOException {
        Random random = new Random(number);
        switch (number % 4) {
            case 0:
                int listOfEntries = jar.length - 12000;
                return compareJars(file("damaged.jar", damaged(jar, random, listOfEntries)));
            case 1:
                List<String> names = new ArrayList<>(entries.keySet());
                String victim = names.get(random.nextInt(names.size()));
                return compareJars(jar(Map.of(victim, damaged(entries.get(victim), random, 0))), JAR);
            case 2:
                return compareLibraries(library(bridge, random), PLATFORM);
            default:
                return compareLibraries(BRIDGE, library(platform, random));
        }
    }

    /** The damages are in the header, in the tables behind it, which the linker uses, or in the list of sections. */
    private static File library(byte[] content, Random random) throws IOException {
        int sections = (int) ByteBuffer.wrap(content).order(ByteOrder.LITTLE_ENDIAN).getLong(40);
        int[] starts = {0, random.nextInt(50_000), sections};
        return file("damaged.so", damaged(content, random, starts[random.nextInt(starts.length)]));
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
}
