package com.kvo.talvern.console.check;

import java.util.regex.Pattern;

/** One thing that does not fit. */
public final class Finding {
    /** What would make a terminal do something else than show it. */
    private static final Pattern CONTROLS = Pattern.compile("[\\p{Cc}\\p{Cf}]");

    /** Where it has to be put right: "jar", "bridge" or "platform". */
    public final String party;

    /** What it is, such as "native method". */
    public final String kind;

    /** Its name, for a method with types. */
    public final String name;

    /** The name that the linker knows it by; null where there is none. */
    public final String symbol;

    /** What is wrong with it. */
    public final String problem;

    /** The header that declares it, such as "platform/nodeName.h"; null where none does. */
    public final String header;

    Finding(String party, String kind, String name, String symbol, String problem) {
        this(party, kind, name, symbol, problem, null);
    }

    Finding(String party, String kind, String name, String symbol, String problem, String header) {
        this.party = party;
        this.kind = kind;
        this.name = escaped(name);
        this.symbol = symbol == null ? null : escaped(symbol);
        this.problem = escaped(problem);
        this.header = header;
    }

    /** What the files say is not to be trusted. */
    private static String escaped(String text) {
        return CONTROLS.matcher(text).replaceAll(found -> String.format("\\\\u%04x", found.group().codePointAt(0)));
    }
}
