package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import java.util.function.Consumer;

/** Compares Java classes and a platform library with what the bridge needs. */
public final class Fit {
    /** The file name of the platform library. */
    public static final String PLATFORM = "libtalvern.so.1";

    private final List<Finding> findings = new ArrayList<>();
    private List<File> platforms;
    private int natives;
    private int members;
    private int operations;

    /**
     * Makes the comparison. A file that can't be read is a finding, too.
     *
     * @param jars the jars with the Java classes, in the order of the class path
     * @param bridgeFile the bridge
     * @param platforms the platform library, or those that it is made of; if empty the one that the linker would load
     */
    public Fit(List<File> jars, File bridgeFile, List<File> platforms) {
        this.platforms = platforms;
        try {
            ElfLibrary bridge = UnreadableFile.library(bridgeFile);
            JavaSide java = new JavaSide(bridge, findings);
            PlatformSide platform = new PlatformSide(bridge, findings);
            natives = java.natives();
            members = java.members();
            operations = platform.operations();
            this.platforms = platforms.isEmpty() ? platform.find() : platforms;
            compare("jar", jars, java::compare);
            compare("platform", this.platforms, platform::compare);
        } catch (UnreadableFile e) {
            findings.add(e.finding("bridge"));
        } catch (IOException e) {
            findings.add(UnreadableFile.of(bridgeFile, e).finding("bridge"));
        }
        findings.sort(Comparator.comparing((Finding finding) -> finding.party)
                .thenComparing(finding -> finding.header == null ? "" : finding.header)
                .thenComparing(finding -> finding.kind).thenComparing(finding -> finding.name));
    }

    private void compare(String party, List<File> files, Consumer<List<File>> comparison) {
        try {
            comparison.accept(files);
        } catch (UnreadableFile e) { // what else it has is not known
            findings.add(e.finding(party));
        }
    }

    /**
     * @return all that does not fit, sorted
     */
    public List<Finding> findings() {
        return Collections.unmodifiableList(findings);
    }

    /**
     * @return the platform library, or those that it is made of; empty if there is none
     */
    public List<File> platforms() {
        return Collections.unmodifiableList(platforms);
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
