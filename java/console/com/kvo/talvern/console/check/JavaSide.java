package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.Requirements;
import com.kvo.talvern.internal.Requirements.Kind;
import com.kvo.talvern.internal.Requirements.Member;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;
import org.objectweb.asm.Opcodes;
import org.objectweb.asm.Type;

/** Compares Java classes with what the bridge needs, and their native methods with what it has. */
final class JavaSide {
    private static final String PACKAGE = "com/kvo/talvern/";

    private final ElfLibrary bridge;
    private final Requirements requirements;
    private final List<Finding> findings;

    JavaSide(ElfLibrary bridge, List<Finding> findings) {
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
            findings.add(new Finding("jar", "file", jars.get(0).getPath(), null, e.getMessage()));
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
                if ((access & Opcodes.ACC_NATIVE) != 0) {
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
                return javaClass == null || isThrowable(member.className, classes) ? null : "is no Throwable";
            default:
                return javaClass == null ? "missing with its class" : problemOf(member, javaClass, classes);
        }
    }

    private static String problemOf(Member member, JavaClass javaClass, JavaClasses classes) {
        boolean isConstructor = member.name.equals("<init>");
        Integer access = member.kind == Kind.NATIVE || isConstructor
                ? javaClass.methods.get(member.name + member.signature)
                : inherited(member, member.className, classes);
        if (access == null) {
            String others = javaClass.methods.keySet().stream()
                    .filter(method -> method.startsWith(member.name + "("))
                    .map(method -> nameOf("", member.name, method.substring(member.name.length())))
                    .collect(Collectors.joining(", "));
            return others.isEmpty() ? "missing" : "missing, there is " + others;
        }
        if (member.kind == Kind.NATIVE) {
            return (access & Opcodes.ACC_NATIVE) == 0 ? "is not native" : null;
        }
        if (isConstructor && (javaClass.access & Opcodes.ACC_ABSTRACT) != 0) {
            return "is of an abstract class";
        }
        boolean isStatic = (access & Opcodes.ACC_STATIC) != 0;
        if (isStatic != (member.kind == Kind.STATIC)) {
            return isStatic ? "is static" : "is not static";
        }
        return null;
    }

    /** The access flags of the method that a lookup on the class finds there or above it; null if there is none. */
    private static Integer inherited(Member member, String className, JavaClasses classes) {
        JavaClass javaClass = className == null ? null : classes.find(className);
        if (javaClass == null) {
            return null;
        }
        Integer access = javaClass.methods.get(member.name + member.signature);
        if (access == null) {
            access = inherited(member, javaClass.superName, classes);
        }
        for (int i = 0; access == null && i < javaClass.interfaces.length; ++i) {
            access = inherited(member, javaClass.interfaces[i], classes);
        }
        return access;
    }

    private static boolean isThrowable(String className, JavaClasses classes) {
        JavaClass javaClass = className == null ? null : classes.find(className);
        return javaClass != null
                && (className.equals("java/lang/Throwable") || isThrowable(javaClass.superName, classes));
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
        List<String> parameters = new ArrayList<>();
        for (Type type : Type.getArgumentTypes(signature)) {
            parameters.add(type.getClassName());
        }
        boolean isConstructor = method.equals("<init>");
        return className.replace('/', '.') + (className.isEmpty() || isConstructor ? "" : ".")
                + (isConstructor ? "" : method) + "(" + String.join(", ", parameters) + ")"
                + (isConstructor ? "" : ": " + Type.getReturnType(signature).getClassName());
    }
}
