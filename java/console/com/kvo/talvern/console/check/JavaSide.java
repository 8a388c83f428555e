package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.Requirements.Kind;
import com.kvo.talvern.internal.Requirements.Member;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Collection;
import java.util.Deque;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Optional;
import java.util.Set;
import java.util.regex.Pattern;
import java.util.stream.Collectors;

/** Compares Java classes with what the bridge needs, and their native methods with what it has. */
final class JavaSide {
    private static final String PACKAGE = "com/kvo/talvern/";
    private static final Pattern TYPE = Pattern.compile("(\\[{0,255}+)(?:L([^;]+);|[ZBCSIJFDV])");
    private static final Map<Character, String> PRIMITIVES = Map.of('Z', "boolean", 'B', "byte", 'C', "char",
            'S', "short", 'I', "int", 'J', "long", 'F', "float", 'D', "double", 'V', "void");

    private final ElfLibrary bridge;
    private final Requirements requirements;
    private final List<Finding> findings;

    JavaSide(ElfLibrary bridge, List<Finding> findings) throws IOException {
        this.bridge = bridge;
        this.requirements = new Requirements(bridge);
        this.findings = findings;
    }

    int natives() {
        return (int) requirements.members().stream().filter(member -> member.kind == Kind.NATIVE).count();
    }

    int members() {
        return requirements.members().size() - natives();
    }

    void compare(List<File> jars) {
        try (JavaClasses classes = new JavaClasses(jars)) {
            String version = classes.version();
            if (version != null && !version.equals(requirements.version())) {
                findings.add(new Finding("jar", "version", version, null, "the bridge has " + requirements.version()));
            }
            for (Member member : requirements.members()) {
                String problem = problemOf(member, classes);
                if (problem != null) {
                    findings.add(new Finding("jar", kindOf(member), nameOf(member), null, problem));
                }
            }
            compareNatives(classes);
        } catch (IOException e) {
            throw UnreadableFile.of(jars.get(0), e); // it can't be closed
        }
    }

    /** The bridge must have the native methods that it lists and those that the classes declare. */
    private void compareNatives(JavaClasses classes) {
        Map<String, String> natives = new LinkedHashMap<>();
        for (Member member : requirements.members()) {
            if (member.kind == Kind.NATIVE) {
                natives.put(SymbolNames.ofNative(member.className, member.name), nameOf(member));
            }
        }
        for (String className : classes.namesBelow(PACKAGE)) {
            classes.find(className).methods.forEach((method, access) -> {
                if ((access & JavaClass.NATIVE) != 0) {
                    int end = method.indexOf('(');
                    natives.put(SymbolNames.ofNative(className, method.substring(0, end)),
                            nameOf(className, method.substring(0, end), method.substring(end)));
                }
            });
        }
        Set<String> exports = bridge.exports();
        natives.forEach((symbol, name) -> {
            if (!exports.contains(symbol)) {
                findings.add(new Finding("bridge", "native method", name, symbol, "missing"));
            }
        });
    }

    /** What is wrong with the member; null if it is as the bridge needs it. */
    private static String problemOf(Member member, JavaClasses classes) {
        JavaClass javaClass = classes.find(member.className);
        switch (member.kind) {
            case CLASS:
                return javaClass == null ? "missing" : null;
            case THROWABLE:
                return javaClass == null || lineage(member.className, classes).containsKey("java/lang/Throwable")
                        ? null : "is no Throwable";
            default:
                return javaClass == null ? "missing with its class" : problemOf(member, javaClass, classes);
        }
    }

    private static String problemOf(Member member, JavaClass javaClass, JavaClasses classes) {
        boolean isConstructor = member.name.equals("<init>");
        boolean isInherited = member.kind != Kind.NATIVE && !isConstructor;
        Collection<JavaClass> lineage =
                isInherited ? lineage(member.className, classes).values() : List.of(javaClass);
        Integer access = lineage.stream().map(ancestor -> ancestor.methods.get(member.name + member.signature))
                .filter(Objects::nonNull).findFirst().orElse(null);
        if (access == null) {
            String others = lineage.stream().flatMap(ancestor -> ancestor.methods.keySet().stream())
                    .filter(method -> method.startsWith(member.name + "("))
                    .map(method -> nameOf("", member.name, method.substring(member.name.length())))
                    .distinct().collect(Collectors.joining(", "));
            return others.isEmpty() ? "missing" : "missing, there is " + others;
        }
        if (member.kind == Kind.NATIVE) {
            return (access & JavaClass.NATIVE) == 0 ? "is not native" : null;
        }
        boolean isOfAbstractClass = (javaClass.access & JavaClass.ABSTRACT) != 0;
        if (isConstructor && isOfAbstractClass) {
            return "is of an abstract class";
        }
        if ((access & JavaClass.ABSTRACT) != 0 && !isOfAbstractClass) {
            return "missing, only declared by an interface or superclass";
        }
        boolean isStatic = (access & JavaClass.STATIC) != 0;
        if (isStatic != (member.kind == Kind.STATIC)) {
            return isStatic ? "is static" : "is not static";
        }
        return null;
    }

    /** The class and all that it inherits from; superclasses before interfaces. */
    private static Map<String, JavaClass> lineage(String className, JavaClasses classes) {
        Map<String, JavaClass> lineage = new LinkedHashMap<>();
        Deque<String> next = new ArrayDeque<>(List.of(className));
        while (!next.isEmpty()) {
            String name = next.pop();
            JavaClass javaClass = classes.find(name);
            if (javaClass != null && lineage.putIfAbsent(name, javaClass) == null) { // a damaged class may be its own
                next.addAll(List.of(javaClass.interfaces));
                Optional.ofNullable(javaClass.superName).ifPresent(next::push);
            }
        }
        return lineage;
    }

    private static String kindOf(Member member) {
        switch (member.kind) {
            case CLASS:
                return "class";
            case THROWABLE:
                return "exception";
            case STATIC:
                return "static method";
            case NATIVE:
                return "native method";
            default:
                return member.name.equals("<init>") ? "constructor" : "method";
        }
    }

    private static String nameOf(Member member) {
        return member.name.isEmpty()
                ? member.className.replace('/', '.') : nameOf(member.className, member.name, member.signature);
    }

    /** As Java writes it, such as "java.util.List.add(int, java.lang.Object): void". */
    private static String nameOf(String className, String method, String signature) {
        boolean isConstructor = method.equals("<init>");
        int end = signature.indexOf(')');
        return className.replace('/', '.') + (className.isEmpty() || isConstructor ? "" : ".")
                + (isConstructor ? "" : method) + "(" + typesOf(signature.substring(0, Math.max(end, 0))) + ")"
                + (isConstructor ? "" : ": " + typesOf(signature.substring(end + 1)));
    }

    private static String typesOf(String signature) {
        return TYPE.matcher(signature).results()
                .map(type -> (type.group(2) == null ? PRIMITIVES.get(signature.charAt(type.end() - 1)) : type.group(2).replace('/', '.'))
                        + "[]".repeat(type.group(1).length())).collect(Collectors.joining(", "));
    }
}
