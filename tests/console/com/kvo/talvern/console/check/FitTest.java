package com.kvo.talvern.console.check;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.Requirements.Kind;
import com.kvo.talvern.internal.Requirements.Member;
import java.io.File;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.Arrays;
import java.util.Comparator;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.function.BiConsumer;
import java.util.function.Predicate;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import org.junit.BeforeClass;
import org.junit.Test;
import org.objectweb.asm.ClassReader;
import org.objectweb.asm.ClassWriter;
import org.objectweb.asm.Opcodes;
import org.objectweb.asm.tree.ClassNode;
import org.objectweb.asm.tree.MethodNode;

/** Each thing that the bridge needs is taken away or changed in turn, and the comparison must name it. */
public class FitTest extends ChangedFiles {
    private static final File SOURCES = new File(System.getProperty("talvern.sources"));

    private static final int NEEDED_VERSIONS = 0x6ffffffe;

    private static Map<String, byte[]> classes;
    private static ElfLibrary bridge;
    private static List<Member> members;

    @BeforeClass
    public static void readWhatFits() throws IOException {
        classes = entries();
        bridge = ElfLibrary.read(BRIDGE);
        members = new Requirements(bridge).members();
    }

    @Test
    public void whatIsBuiltTogetherFits() throws IOException {
        Fit fit = new Fit(List.of(JAR), BRIDGE, List.of(PLATFORM));
        assertEquals("", describe(fit.findings()));
        assertTrue(fit.natives() > 0 && fit.members() > 0 && fit.operations() > 0);

        Map<String, byte[]> newer = new TreeMap<>(classes); // classes of a newer Java
        newer.replaceAll((name, bytes) -> name.endsWith(".class") ? withByte(bytes, 7, 99) : bytes);
        assertEquals("", describe(compareJars(jar(newer))));
    }

    @Test
    public void namesEachMethodThatIsMissingOrOfAnotherKind() throws IOException {
        assertNames(member -> true, "missing", (javaClass, method) -> javaClass.methods.remove(method));
        assertNames(member -> true, "missing, ", (javaClass, method) -> method.desc = method.desc.replace(")", "J)"));
        assertNames(member -> member.kind == Kind.NATIVE, "is not native",
                (javaClass, method) -> method.access &= ~Opcodes.ACC_NATIVE);
        assertNames(member -> member.kind == Kind.STATIC, "is not static",
                (javaClass, method) -> method.access &= ~Opcodes.ACC_STATIC);
        assertNames(member -> member.kind == Kind.METHOD && !member.name.equals("<init>"), "is static",
                (javaClass, method) -> method.access |= Opcodes.ACC_STATIC);
        assertNames(member -> member.name.equals("<init>"), "is of an abstract class",
                (javaClass, method) -> javaClass.access |= Opcodes.ACC_ABSTRACT);
    }

    @Test
    public void namesEachClassThatIsNoThrowable() throws IOException {
        List<Member> throwables = members.stream().filter(member -> member.kind == Kind.THROWABLE)
                .collect(Collectors.toList());
        Map<String, byte[]> changed = new TreeMap<>();
        for (Member member : throwables) {
            ClassNode other = read(member.className);
            other.superName = "java/lang/Object";
            changed.put(member.className + ".class", write(other));
        }
        List<Finding> findings = compareJars(jar(changed), JAR);
        throwables.forEach(member -> assertNamed(findings, member, "is no Throwable"));
    }

    @Test
    public void namesEachSymbolThatIsMissingOrHasOtherParameters() throws IOException {
        Set<String> operations = bridge.importsFrom(Fit.PLATFORM);
        Set<String> natives = bridge.exports();
        natives.removeIf(symbol -> !symbol.startsWith("Java_"));
        List<Finding> missing = compareLibraries(BRIDGE, changed(PLATFORM, operations, true));
        assertAll("platform", operations, "missing", missing);
        assertAll("platform", operations, "missing, there is ",
                compareLibraries(BRIDGE, changed(PLATFORM, operations, false)));
        assertAll("bridge", natives, "missing", compareLibraries(changed(BRIDGE, natives, false), PLATFORM));

        for (Finding finding : missing) { // sorted by the header that declares it
            String name = finding.name.replaceFirst("\\(.*", "").replaceFirst(".*::", "");
            assertTrue(finding.name + " in " + finding.header,
                    Files.readString(new File(SOURCES, finding.header).toPath()).matches("(?s).*\\W" + name + "\\W.*"));
        }
        assertEquals(missing, missing.stream().sorted(Comparator.comparing((Finding finding) -> finding.header)
                .thenComparing(finding -> finding.name)).collect(Collectors.toList()));
    }

    @Test
    public void namesNativeMethodsThatOnlyTheClassesHave() throws IOException {
        ClassNode javaClass = read("com/kvo/talvern/NativeLibrary");
        javaClass.methods.add(new MethodNode(Opcodes.ACC_NATIVE, "_isNew$", "()Z", null, null));
        Map<String, byte[]> changed = Map.of("com/kvo/talvern/NativeLibrary.class", write(javaClass));
        assertAll("bridge", Set.of("Java_com_kvo_talvern_NativeLibrary__1isNew_00024"), "missing",
                compareJars(jar(changed), JAR));
    }

    @Test
    public void namesAllThatIsMissingInOneRun() throws IOException {
        List<Finding> findings = new Fit(List.of(jar(Map.of("empty", new byte[0]))), BRIDGE, List.of(BRIDGE)).findings();
        List<Member> missing = members.stream().filter(member -> member.kind != Kind.THROWABLE)
                .collect(Collectors.toList());
        missing.forEach(member -> assertNamed(findings, member, "missing"));
        assertEquals(missing.size() + bridge.importsFrom(Fit.PLATFORM).size(),
                findings.stream().map(finding -> finding.kind + finding.name).distinct().count());
    }

    @Test
    public void namesOtherReleasesAndProcessors() throws IOException {
        Map<String, byte[]> older = new TreeMap<>(classes);
        older.put(JarFile.MANIFEST_NAME, "Manifest-Version: 1.0\nImplementation-Version: 0.9\n".getBytes());
        assertEquals("jar version 0.9", names(compareJars(jar(older))));

        File platform = file("platform.so", withByte(Files.readAllBytes(PLATFORM.toPath()), 18, 183));
        assertEquals("platform processor AArch64", names(compareLibraries(BRIDGE, platform)));
        File foreign = file("bridge.so", withByte(Files.readAllBytes(BRIDGE.toPath()), 18, 183));
        assertEquals("bridge processor AArch64", names(compareLibraries(foreign, platform)));
    }

    @Test
    public void namesWhatTheSystemLacks() throws IOException {
        File newer = replaced(BRIDGE, "GLIBCXX_3.4.2", "GLIBCXX_9.4.2");
        assertEquals("bridge version GLIBCXX_9.4.2", names(compareLibraries(newer, PLATFORM)).substring(0, 28));
        File needy = replaced(PLATFORM, "libstdc++.so.6", "libother+.so.6");
        assertEquals("platform library libother+.so.6", names(compareLibraries(BRIDGE, needy)));
    }

    @Test(timeout = 300_000) // some damages are circles
    public void namesDamagedFiles() throws IOException {
        byte[] platform = Files.readAllBytes(PLATFORM.toPath());
        for (File damaged : List.of(file("short", Arrays.copyOf(platform, 9999)),
                file("other", withByte(platform, 0, 0)))) {
            assertEquals("platform file " + damaged, names(compareLibraries(BRIDGE, damaged)));
            assertEquals("bridge file " + damaged, names(compareLibraries(damaged, PLATFORM)));
            assertEquals("jar file " + damaged, names(compareJars(damaged)));
        }
        ByteBuffer circle = ByteBuffer.wrap(Files.readAllBytes(BRIDGE.toPath())).order(ByteOrder.LITTLE_ENDIAN);
        int header = (int) circle.getLong(40);
        while (circle.getInt(header + 4) != NEEDED_VERSIONS) {
            header += 64;
        }
        int first = (int) circle.getLong(header + 24);
        int next = circle.getInt(first + 12);
        circle.putInt(first + next + 12, -next);
        File circular = file("circular.so", circle.array());
        assertEquals("bridge file " + circular, names(compareLibraries(circular, PLATFORM)));

        ClassNode ownParent = read("com/kvo/talvern/TalvernException");
        ownParent.superName = ownParent.name;
        File jar = jar(Map.of(ownParent.name + ".class", write(ownParent)));
        assertEquals("jar exception com.kvo.talvern.TalvernException", names(compareJars(jar, JAR)).split("\n")[0]);
        ClassNode shapeless = read("com/kvo/talvern/TalvernException");
        shapeless.methods.add(new MethodNode(Opcodes.ACC_NATIVE, "_shapeless", "Z", null, null));
        byte[] huge = Arrays.copyOf(write(read("com/kvo/talvern/TalvernException")), 1 << 25);
        for (byte[] content : List.of(write(shapeless), huge)) {
            jar = jar(Map.of("com/kvo/talvern/Damaged.class", content));
            assertEquals("jar file " + jar, names(compareJars(jar, JAR)));
        }
    }

    @Test
    public void escapesWhatLibrariesSay() throws IOException {
        String symbol = bridge.importsFrom(Fit.PLATFORM).iterator().next();
        for (String name : List.of("@/etc/passwd", "\u001b[31mred", "_Z\n_Z1f")) {
            File changed = replaced(BRIDGE, "\0" + symbol, "\0" + name + symbol.substring(name.length()));
            Finding finding = compareLibraries(changed, PLATFORM).get(0);
            assertEquals((name + symbol.substring(name.length())).replace("\u001b", "\\u001b").replace("\n", "\\u000a"),
                    finding.name);
        }
    }

    /** Changes all methods of all classes. */
    private static void assertNames(Predicate<Member> selection, String problem,
            BiConsumer<ClassNode, MethodNode> change) throws IOException {
        Map<String, byte[]> changed = new TreeMap<>(classes);
        for (String name : classes.keySet()) {
            if (name.endsWith(".class")) {
                ClassNode javaClass = read(name.replace(".class", ""));
                List.copyOf(javaClass.methods).forEach(method -> change.accept(javaClass, method));
                changed.put(name, write(javaClass));
            }
        }
        List<Finding> findings = compareJars(jar(changed));
        List<Member> selected = members.stream()
                .filter(member -> member.className.startsWith("com/") && !member.name.isEmpty() && selection.test(member))
                .collect(Collectors.toList());
        assertFalse(problem, selected.isEmpty());
        selected.forEach(member -> assertNamed(findings, member, problem));
    }

    /** A library in which the first or the last letter of each symbol is another one. */
    private static File changed(File library, Set<String> symbols, boolean atStart) throws IOException {
        byte[] bytes = Files.readAllBytes(library.toPath());
        String content = new String(bytes, StandardCharsets.ISO_8859_1);
        for (String symbol : symbols) { // which stands first in the linker's table
            int place = content.indexOf("\0" + symbol + "\0") + (atStart ? 1 : symbol.length());
            bytes[place] = (byte) (bytes[place] == 'l' ? 'm' : 'l');
        }
        return file("changed.so", bytes);
    }

    private static File replaced(File library, String text, String other) throws IOException {
        String content = Files.readString(library.toPath(), StandardCharsets.ISO_8859_1);
        assertTrue(text, content.contains(text) && text.length() == other.length());
        return file("changed.so", content.replace(text, other).getBytes(StandardCharsets.ISO_8859_1));
    }

    private static void assertNamed(List<Finding> findings, Member member, String problem) {
        String name = member.className.replace('/', '.')
                + (member.name.isEmpty() ? "" : member.name.equals("<init>") ? "(" : "." + member.name + "(");
        assertTrue(name + " is not among " + describe(findings), findings.stream().anyMatch(finding ->
                finding.party.equals("jar") && finding.name.startsWith(name) && finding.problem.startsWith(problem)));
    }

    private static void assertAll(String party, Set<String> symbols, String problem, List<Finding> findings) {
        assertEquals(symbols, findings.stream().map(finding -> finding.symbol).collect(Collectors.toSet()));
        for (Finding finding : findings) {
            assertEquals(party, finding.party);
            assertTrue(finding.problem, finding.problem.startsWith(problem));
        }
    }

    private static String describe(List<Finding> findings) {
        return findings.stream().map(finding -> names(List.of(finding)) + ": " + finding.problem + "\n")
                .collect(Collectors.joining());
    }

    private static String names(List<Finding> findings) {
        return findings.stream().map(finding -> finding.party + " " + finding.kind + " " + finding.name)
                .collect(Collectors.joining("\n"));
    }

    private static ClassNode read(String name) {
        ClassNode javaClass = new ClassNode();
        new ClassReader(classes.get(name + ".class")).accept(javaClass, 0);
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
}
