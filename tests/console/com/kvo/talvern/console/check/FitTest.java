package com.kvo.talvern.console.check;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.Requirements.Kind;
import com.kvo.talvern.internal.Requirements.Member;
import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.function.BiConsumer;
import java.util.function.Predicate;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;
import org.junit.AfterClass;
import org.junit.BeforeClass;
import org.junit.ClassRule;
import org.junit.Test;
import org.junit.rules.TemporaryFolder;
import org.objectweb.asm.ClassReader;
import org.objectweb.asm.ClassWriter;
import org.objectweb.asm.Opcodes;
import org.objectweb.asm.tree.ClassNode;
import org.objectweb.asm.tree.MethodNode;

/** Each thing that the bridge needs is taken away or changed in turn, and the comparison must name it. */
public class FitTest {
    private static final File BUILD = new File(System.getProperty("talvern.build"));
    private static final File JAR = new File(BUILD, "talvern-api.jar");
    private static final File BRIDGE = new File(BUILD, "libtalvernjni.so");
    private static final File PLATFORM = new File(BUILD, Fit.PLATFORM);

    @ClassRule
    public static final TemporaryFolder FOLDER = new TemporaryFolder();

    private static final Map<String, byte[]> CLASSES = new TreeMap<>();
    private static ElfLibrary bridge;
    private static List<Member> members;
    private static int comparisons;
    private static long nanoseconds;

    @BeforeClass
    public static void readWhatFits() throws IOException {
        try (JarFile jar = new JarFile(JAR)) {
            for (ZipEntry entry : jar.stream().collect(Collectors.toList())) {
                CLASSES.put(entry.getName(), jar.getInputStream(entry).readAllBytes());
            }
        }
        bridge = ElfLibrary.read(BRIDGE);
        members = new Requirements(bridge).members();
    }

    @AfterClass
    public static void isQuick() {
        System.out.println(comparisons + " comparisons, " + nanoseconds / 1_000_000 / comparisons + " ms each");
        assertTrue(nanoseconds / 1e9 / comparisons < 1);
    }

    @Test
    public void whatIsBuiltTogetherFits() {
        Fit fit = new Fit(List.of(JAR), BRIDGE, List.of(PLATFORM));
        assertEquals("", describe(fit.findings()));
        assertTrue(fit.natives() > 0 && fit.members() > 0 && fit.operations() > 0);
    }

    @Test
    public void namesEachMissingMethod() throws IOException {
        forEachMethod(member -> true, "missing", (javaClass, method) -> javaClass.methods.remove(method));
    }

    @Test
    public void namesEachMethodWithAnotherSignature() throws IOException {
        forEachMethod(member -> true, "missing, there is ", (javaClass, method) -> method.desc = method.desc.replace(")", "J)"));
    }

    @Test
    public void namesEachMethodOfAnotherKind() throws IOException {
        forEachMethod(member -> member.kind == Kind.NATIVE, "is not native",
                (javaClass, method) -> method.access &= ~Opcodes.ACC_NATIVE);
        forEachMethod(member -> member.kind == Kind.STATIC, "is not static",
                (javaClass, method) -> method.access &= ~Opcodes.ACC_STATIC);
        forEachMethod(member -> member.kind == Kind.METHOD && !member.name.equals("<init>"), "is static",
                (javaClass, method) -> method.access |= Opcodes.ACC_STATIC);
        forEachMethod(member -> member.name.equals("<init>"), "is of an abstract class",
                (javaClass, method) -> javaClass.access |= Opcodes.ACC_ABSTRACT);
    }

    @Test
    public void namesEachMissingClassAndAllThatIsMissingWithIt() throws IOException {
        Set<String> names = members.stream().map(member -> member.className).collect(Collectors.toSet());
        for (String name : names) {
            Map<String, byte[]> rest = new TreeMap<>(CLASSES);
            rest.remove(name + ".class");
            List<Finding> findings = compare(List.of(jar(rest)), BRIDGE, PLATFORM);
            for (Member member : members) {
                if (member.className.equals(name) && member.kind != Kind.THROWABLE) {
                    assertNamed(findings, member, "missing");
                }
            }
        }
    }

    @Test
    public void namesEachExceptionThatIsNone() throws IOException {
        for (Member member : members) {
            if (member.kind == Kind.THROWABLE) {
                ClassNode javaClass = read(member.className);
                javaClass.superName = "java/lang/Object";
                Map<String, byte[]> changed = Map.of(member.className + ".class", write(javaClass));
                assertNamed(compare(List.of(jar(changed), JAR), BRIDGE, PLATFORM), member, "is no Throwable");
            }
        }
    }

    @Test
    public void namesEachMissingOperation() throws IOException {
        forEachSymbol(PLATFORM, bridge.importsFrom(Fit.PLATFORM), 0, (changed, symbol) ->
                assertOnly(compare(List.of(JAR), BRIDGE, changed), "platform", symbol, "missing"));
    }

    @Test
    public void namesEachOperationWithOtherParameters() throws IOException {
        forEachSymbol(PLATFORM, bridge.importsFrom(Fit.PLATFORM), -1, (changed, symbol) ->
                assertOnly(compare(List.of(JAR), BRIDGE, changed), "platform", symbol, "missing, there is "));
    }

    @Test
    public void namesEachNativeMethodThatTheBridgeLacks() throws IOException {
        Set<String> natives = bridge.exports();
        natives.removeIf(symbol -> !symbol.startsWith("Java_"));
        forEachSymbol(BRIDGE, natives, -1, (changed, symbol) ->
                assertOnly(compare(List.of(JAR), changed, PLATFORM), "bridge", symbol, "missing"));
    }

    @Test
    public void namesNativeMethodsThatOnlyTheClassesHave() throws IOException {
        ClassNode javaClass = read("com/kvo/talvern/NativeLibrary");
        javaClass.methods.add(new MethodNode(Opcodes.ACC_NATIVE, "_isNew$", "()Z", null, null));
        Map<String, byte[]> changed = Map.of("com/kvo/talvern/NativeLibrary.class", write(javaClass));
        assertOnly(compare(List.of(jar(changed), JAR), BRIDGE, PLATFORM), "bridge",
                "Java_com_kvo_talvern_NativeLibrary__1isNew_00024", "missing");
    }

    @Test
    public void namesAllInOneRun() throws IOException {
        List<Finding> findings = compare(List.of(jar(Map.of("empty", new byte[0]))), BRIDGE, BRIDGE);
        long expected = members.stream().filter(member -> member.kind != Kind.THROWABLE).count()
                + bridge.importsFrom(Fit.PLATFORM).size();
        assertEquals(expected, findings.stream().map(finding -> finding.kind + finding.name).distinct().count());
    }

    @Test
    public void readsClassesOfNewerReleases() throws IOException {
        Map<String, byte[]> newer = new TreeMap<>(CLASSES);
        newer.replaceAll((name, bytes) -> name.endsWith(".class") ? withByte(bytes, 7, 99) : bytes);
        assertEquals("", describe(compare(List.of(jar(newer)), BRIDGE, PLATFORM)));
    }

    @Test
    public void namesOtherReleasesProcessorsAndDamagedFiles() throws IOException {
        Map<String, byte[]> older = new TreeMap<>(CLASSES);
        older.put(JarFile.MANIFEST_NAME, "Manifest-Version: 1.0\nImplementation-Version: 0.9\n".getBytes());
        assertEquals("[jar version 0.9]", names(compare(List.of(jar(older)), BRIDGE, PLATFORM)));

        byte[] platform = Files.readAllBytes(PLATFORM.toPath());
        assertEquals("[platform processor AArch64]",
                names(compare(List.of(JAR), BRIDGE, file(withByte(platform, 18, 183)))));
        File beginning = file(java.util.Arrays.copyOf(platform, 9999));
        assertEquals("[platform file " + beginning + "]", names(compare(List.of(JAR), BRIDGE, beginning)));
        assertEquals("[bridge file " + beginning + "]", names(compare(List.of(JAR), beginning, PLATFORM)));
        assertEquals("[jar file " + beginning + "]", names(compare(List.of(beginning), BRIDGE, PLATFORM)));
        File other = file(withByte(platform, 0, 0));
        assertEquals("[platform file " + other + "]", names(compare(List.of(JAR), BRIDGE, other)));
    }

    private static List<Finding> compare(List<File> jars, File library, File platform) {
        long start = System.nanoTime();
        Fit fit = new Fit(jars, library, List.of(platform));
        nanoseconds += System.nanoTime() - start;
        ++comparisons;
        return fit.findings();
    }

    /** Changes each method in turn, wherever the jar declares it for the class. */
    private static void forEachMethod(Predicate<Member> selection, String problem,
            BiConsumer<ClassNode, MethodNode> change) throws IOException {
        int changes = 0;
        for (Member member : members) {
            Map<String, byte[]> changed = member.name.isEmpty() || !selection.test(member)
                    ? Map.of() : changed(member, change);
            if (!changed.isEmpty()) {
                List<Finding> findings = compare(List.of(jar(changed), JAR), BRIDGE, PLATFORM);
                assertNamed(findings, member, problem);
                for (Finding finding : findings) { // at most where it is inherited, besides
                    assertTrue(finding.name, finding.name.contains(methodName(member)));
                }
                ++changes;
            }
        }
        assertTrue(problem, changes > 0);
    }

    private static Map<String, byte[]> changed(Member member, BiConsumer<ClassNode, MethodNode> change) {
        Map<String, byte[]> changed = new TreeMap<>();
        String name = member.className;
        while (CLASSES.containsKey(name + ".class")) {
            ClassNode javaClass = read(name);
            for (MethodNode method : List.copyOf(javaClass.methods)) {
                if (method.name.equals(member.name) && method.desc.equals(member.signature)) {
                    change.accept(javaClass, method);
                    changed.put(name + ".class", write(javaClass));
                }
            }
            name = javaClass.superName;
        }
        return changed;
    }

    /** Changes a byte of each symbol's name in turn, counted from its end if it is negative. */
    private static void forEachSymbol(File library, Set<String> symbols, int position, BiConsumer<File, String> check)
            throws IOException {
        File changed = file(Files.readAllBytes(library.toPath()));
        String content = Files.readString(library.toPath(), StandardCharsets.ISO_8859_1);
        try (RandomAccessFile bytes = new RandomAccessFile(changed, "rw")) {
            for (String symbol : symbols) {
                List<Integer> places = new ArrayList<>();
                int start = content.indexOf("\0" + symbol + "\0") + 1;
                for (; start > 0; start = content.indexOf("\0" + symbol + "\0", start) + 1) {
                    places.add(position < 0 ? start + symbol.length() + position : start + position);
                }
                for (int place : places) {
                    bytes.seek(place);
                    bytes.write(content.charAt(place) == 'l' ? 'm' : 'l');
                }
                check.accept(changed, symbol);
                for (int place : places) {
                    bytes.seek(place);
                    bytes.write(content.charAt(place));
                }
            }
        }
    }

    private static void assertNamed(List<Finding> findings, Member member, String problem) {
        String name = member.className.replace('/', '.') + (member.name.isEmpty() ? "" : methodName(member));
        assertTrue(name + " is not among " + describe(findings), findings.stream().anyMatch(finding ->
                finding.party.equals("jar") && finding.name.startsWith(name) && finding.problem.startsWith(problem)));
    }

    private static void assertOnly(List<Finding> findings, String party, String symbol, String problem) {
        assertEquals(symbol + ": " + describe(findings), 1, findings.size());
        Finding finding = findings.get(0);
        assertEquals(party, finding.party);
        assertEquals(symbol, finding.symbol);
        assertTrue(finding.problem, finding.problem.startsWith(problem));
    }

    private static String methodName(Member member) {
        return (member.name.equals("<init>") ? "" : "." + member.name) + "(";
    }

    private static String describe(List<Finding> findings) {
        return findings.stream().map(finding -> finding.party + " " + finding.kind + " " + finding.name + ": "
                + finding.problem + "\n").collect(Collectors.joining());
    }

    private static String names(List<Finding> findings) {
        return findings.stream().map(finding -> finding.party + " " + finding.kind + " " + finding.name)
                .collect(Collectors.toList()).toString();
    }

    private static ClassNode read(String name) {
        ClassNode javaClass = new ClassNode();
        new ClassReader(CLASSES.get(name + ".class")).accept(javaClass, 0);
        return javaClass;
    }

    private static byte[] write(ClassNode javaClass) {
        ClassWriter writer = new ClassWriter(0);
        javaClass.accept(writer);
        return writer.toByteArray();
    }

    private static byte[] withByte(byte[] bytes, int position, int value) {
        byte[] changed = bytes.clone();
        changed[position] = (byte) value;
        return changed;
    }

    private static File file(byte[] content) throws IOException {
        File file = FOLDER.newFile();
        Files.write(file.toPath(), content);
        return file;
    }

    private static File jar(Map<String, byte[]> content) throws IOException {
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
