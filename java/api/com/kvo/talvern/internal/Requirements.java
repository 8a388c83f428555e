package com.kvo.talvern.internal;

import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/**
 * What the bridge needs of the Java side. The list is a section of the bridge's file. For the classes of
 * this product only.
 */
public final class Requirements {
    private String version = "unknown";
    private final List<Member> members = new ArrayList<>();

    /**
     * @param bridge the bridge's file
     */
    public Requirements(ElfLibrary bridge) {
        for (String line : bridge.description().split("\n")) {
            String[] words = line.split(" ");
            if (words[0].equals("version")) {
                version = words[1];
            } else if (!line.isEmpty()) {
                members.add(new Member(words));
            }
        }
    }

    /**
     * @return the bridge's version
     */
    public String version() {
        return version;
    }

    /**
     * @return all that it needs
     */
    public List<Member> members() {
        return Collections.unmodifiableList(members);
    }

    /**
     * @return the names of the classes that the bridge looks up, such as "java/lang/String"
     */
    public Set<String> classes() {
        Set<String> names = new LinkedHashSet<>();
        for (Member member : members) {
            if (member.kind == Kind.CLASS) {
                names.add(member.className);
            }
        }
        return names;
    }

    /** What a member must be. */
    public enum Kind {
        /** A class or an interface. */
        CLASS,
        /** A class that the bridge throws. */
        THROWABLE,
        /** An instance method or a constructor, also inherited. */
        METHOD,
        /** A static method, also inherited. */
        STATIC,
        /** A native method of the class itself. */
        NATIVE
    }

    /** One class, or one method of a class. */
    public static final class Member {
        /** What it must be. */
        public final Kind kind;

        /** The class, such as "java/lang/String". */
        public final String className;

        /** The method's name; empty for a class. */
        public final String name;

        /** The method's JNI signature; empty for a class. */
        public final String signature;

        private Member(String[] words) {
            kind = Kind.valueOf(words[0].toUpperCase(java.util.Locale.ROOT));
            className = words[1];
            name = words.length > 2 ? words[2] : "";
            signature = words.length > 3 ? words[3] : "";
        }
    }
}
