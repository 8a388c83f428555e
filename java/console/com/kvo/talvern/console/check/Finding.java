package com.kvo.talvern.console.check;

/** One thing that does not fit. */
public final class Finding {
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

    Finding(String party, String kind, String name, String symbol, String problem) {
        this.party = party;
        this.kind = kind;
        this.name = name;
        this.symbol = symbol;
        this.problem = problem;
    }
}
