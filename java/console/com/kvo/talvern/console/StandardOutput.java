package com.kvo.talvern.console;

import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.OutputStream;

/** The standard output. That it takes nothing more ends the console, at once: nobody reads what comes of the rest. */
final class StandardOutput extends OutputStream {
    private final OutputStream stream = new FileOutputStream(FileDescriptor.out);

    /** The standard output takes nothing more. An error, since no command has anything to do about it. */
    static final class Lost extends Error {
        private static final long serialVersionUID = 1L;

        Lost(IOException e) {
            super(e.getMessage(), e);
        }
    }

    @Override
    public void write(int b) {
        write(new byte[] {(byte) b}, 0, 1);
    }

    @Override
    public void write(byte[] bytes, int offset, int length) {
        try {
            stream.write(bytes, offset, length);
        } catch (IOException e) {
            throw new Lost(e);
        }
    }
}
