package com.kvo.talvern.console.check;

import java.util.LinkedHashMap;
import java.util.Map;
import org.objectweb.asm.ClassVisitor;
import org.objectweb.asm.MethodVisitor;
import org.objectweb.asm.Opcodes;

/** What a class file declares. */
final class JavaClass extends ClassVisitor {
    int access;
    String superName;
    String[] interfaces;

    /** The access flags of each method, by its name and signature. */
    final Map<String, Integer> methods = new LinkedHashMap<>();

    JavaClass() {
        super(Opcodes.ASM9);
    }

    @Override
    public void visit(int version, int flags, String name, String generics, String parent, String[] parents) {
        access = flags;
        superName = parent;
        interfaces = parents;
    }

    @Override
    public MethodVisitor visitMethod(int flags, String name, String signature, String generics, String[] thrown) {
        methods.put(name + signature, flags);
        return null;
    }
}
