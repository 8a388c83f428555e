package com.kvo.talvern.console.check;

import java.io.ByteArrayInputStream;
import java.io.DataInputStream;
import java.io.IOException;
import java.util.LinkedHashMap;
import java.util.Map;

/** What a class file of any Java release declares. It is read once from start to end, so that no damage can hold it up. */
final class JavaClass {
    /** An access flag: belongs to the class, not to its objects. */
    static final int STATIC = 0x0008;

    /** An access flag: is a native method. */
    static final int NATIVE = 0x0100;

    /** An access flag: has no code, or is a class with such methods. */
    static final int ABSTRACT = 0x0400;

    final int access;

    /** Null for java/lang/Object. */
    final String superName;

    final String[] interfaces;

    /** The access flags of each method, by its name and signature. */
    final Map<String, Integer> methods = new LinkedHashMap<>();

    private final DataInputStream content;
    private final Object[] constants;

    /**
     * @throws IOException if the content is not that of a class
     * @throws RuntimeException likewise
     */
    JavaClass(byte[] bytes) throws IOException {
        content = new DataInputStream(new ByteArrayInputStream(bytes));
        if (content.readInt() != 0xcafebabe) {
            throw new IOException("no class");
        }
        skip(4); // its release
        constants = new Object[content.readUnsignedShort()];
        readConstants();
        access = content.readUnsignedShort();
        skip(2); // its own name
        superName = readClassName();
        interfaces = new String[content.readUnsignedShort()];
        for (int i = 0; i < interfaces.length; ++i) {
            interfaces[i] = readClassName();
        }
        readMembers(new LinkedHashMap<>());
        readMembers(methods);
        if (methods.keySet().stream().anyMatch(method -> method.indexOf('(') < 0)) {
            throw new IOException("a method without signature");
        }
    }

    /** Texts stand for themselves, classes for the place of the text that is their name. */
    private void readConstants() throws IOException {
        for (int i = 1; i < constants.length; ++i) {
            int tag = content.readUnsignedByte();
            switch (tag) {
                case 1: // a text
                    constants[i] = content.readUTF();
                    break;
                case 7: // a class
                    constants[i] = content.readUnsignedShort();
                    break;
                case 5: // numbers of 64 bits, which count twice
                case 6:
                    skip(8);
                    ++i;
                    break;
                case 8: // references to one other constant
                case 16:
                case 19:
                case 20:
                    skip(2);
                    break;
                case 15: // a reference with its kind
                    skip(3);
                    break;
                default: // references to two others, and numbers of 32 bits
                    if (tag < 3 || tag > 18) {
                        throw new IOException("unknown constant");
                    }
                    skip(4);
            }
        }
    }

    private void readMembers(Map<String, Integer> members) throws IOException {
        for (int count = content.readUnsignedShort(); count > 0; --count) {
            int flags = content.readUnsignedShort();
            String name = (String) constants[content.readUnsignedShort()];
            members.put(name + constants[content.readUnsignedShort()], flags);
            for (int attributes = content.readUnsignedShort(); attributes > 0; --attributes) {
                skip(2);
                skip(content.readInt());
            }
        }
    }

    private String readClassName() throws IOException {
        Object name = constants[content.readUnsignedShort()];
        return name == null ? null : (String) constants[(Integer) name];
    }

    private void skip(int count) throws IOException {
        if (count < 0 || content.skipBytes(count) < count) {
            throw new IOException("too short");
        }
    }
}
