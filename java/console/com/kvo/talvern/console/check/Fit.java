package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** Compares Java classes and a platform library with what the bridge needs. */
public final class Fit {
    /** The file name of the platform library. */
    public static final String PLATFORM = "libtalvern.so.1";

    private final List<Finding> findings = new ArrayList<>();
    private int natives;
    private int members;
    private int operations;

    /**
     * Makes the comparison. A file that can't be read is a finding, too.
     *
     * @param jars the jars with the Java classes, in the order of the class path
     * @param bridgeFile the bridge
     * @param platforms the platform library, or those that it is made of
     */
    public Fit(List<File> jars, File bridgeFile, List<File> platforms) {
        try {
            ElfLibrary bridge = ElfLibrary.read(bridgeFile);
            JavaSide java = new JavaSide(bridge, findings);
            java.compare(jars);
            natives = java.natives();
            members = java.members();
            PlatformSide platform = new PlatformSide(bridge, findings);
            platform.compare(platforms);
            operations = platform.operations();
        } catch (IOException e) {
            findings.add(new Finding("bridge", "file", bridgeFile.getPath(), null, e.getMessage()));
        }
    }

    /**
     * @return all that does not fit
     */
    public List<Finding> findings() {
        return Collections.unmodifiableList(findings);
    }

    /**
     * @return how many native methods the bridge has
     */
    public int natives() {
        return natives;
    }

    /**
     * @return how many classes and methods of the Java side the bridge uses
     */
    public int members() {
        return members;
    }

    /**
     * @return how many functions and variables of the platform the bridge uses
     */
    public int operations() {
        return operations;
    }
}
