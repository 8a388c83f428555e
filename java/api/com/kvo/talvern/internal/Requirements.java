package com.kvo.talvern.internal;

import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * What the bridge needs of the Java side. The list is a section of the bridge's file. For the classes of
 * this product only.
 */
public final class Requirements {
    private static final Pattern LINE = Pattern.compile("version (?<version>\\S+)"
            + "|(?<kind>class|throwable|method|static|native) (?<class>\\S+)(?: (?<name>\\S+) (?<signature>\\S+))?");

    private String version = "unknown";
    private final List<Member> members = new ArrayList<>();

    /**
     * @param bridge the bridge's file
     * @throws IOException if it is another library, or its list is damaged; the message says so
     */
    public Requirements(ElfLibrary bridge) throws IOException {
        if (bridge.description().isEmpty()) {
            throw new IOException(bridge.file() + " is not the bridge: it does not tell what it needs of Java");
        }
        for (String line : bridge.description().split("\n")) {
            Matcher words = LINE.matcher(line);
            if (!words.matches()) {
                throw new IOException(bridge.file() + " is damaged: its list of what it needs of Java is unreadable");
            }
            if (words.group("version") != null) {
                version = words.group("version");
            } else {
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

        private Member(Matcher words) {
            kind = Kind.valueOf(words.group("kind").toUpperCase(Locale.ROOT));
            className = words.group("class");
            name = words.group("name") == null ? "" : words.group("name");
            signature = words.group("signature") == null ? "" : words.group("signature");
        }
    }
}
