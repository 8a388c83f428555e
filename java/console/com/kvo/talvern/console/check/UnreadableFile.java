package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import java.io.File;
import java.io.IOException;

/** A file can't be read, or its content makes no sense. */
final class UnreadableFile extends RuntimeException {
    private static final long serialVersionUID = 1L;

    private final transient File file;

    UnreadableFile(File file, String problem, Throwable cause) {
        super(problem, cause);
        this.file = file;
    }

    Finding finding(String party) {
        return new Finding(party, "file", file.getPath(), null, getMessage());
    }

    /** Reads a native library. */
    static ElfLibrary library(File file) {
        try {
            return ElfLibrary.read(file);
        } catch (IOException e) {
            throw of(file, e);
        }
    }

    /** A failure whose message begins with the file's name. */
    static UnreadableFile of(File file, IOException e) {
        return new UnreadableFile(file, e.getMessage().replace(file + " ", ""), e);
    }
}
