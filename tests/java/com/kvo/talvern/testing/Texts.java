package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.NodeName;

/** Sends every character through the bridge and back. */
public final class Texts {
    private static final int BLOCK = 4096;

    private Texts() {}

    /** The first code points that do not come back as they went in; empty if all do. */
    public static String firstLost() {
        NodeName nodeName = new NodeName();
        for (int first = 0; first <= Character.MAX_CODE_POINT; first += BLOCK) {
            StringBuilder text = new StringBuilder();
            for (int codePoint = first; codePoint < first + BLOCK; codePoint++) {
                text.appendCodePoint(codePoint);
            }
            nodeName.setNodeName(text.toString());
            if (!nodeName.getNodeName().contentEquals(text)) {
                return String.format("U+%04X to U+%04X", first, first + BLOCK - 1);
            }
        }
        return "";
    }
}
