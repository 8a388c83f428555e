package com.kvo.talvern.console;

import java.io.BufferedInputStream;
import java.io.ByteArrayOutputStream;
import java.io.Closeable;
import java.io.IOException;
import java.io.InputStream;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;

/** The lines of a text in UTF-8. */
final class Lines implements Closeable {
    private static final int LONGEST = 1 << 20;

    private final InputStream input;
    private int number;

    Lines(InputStream input) {
        this.input = new BufferedInputStream(input);
    }

    /**
     * @return the next line; null at the end
     * @throws IllegalArgumentException if the line is no text or endless; the message says so, and not what is in it
     */
    String next() throws IOException {
        ++number;
        ByteArrayOutputStream line = new ByteArrayOutputStream();
        int b = input.read();
        if (b == -1) {
            return null;
        }
        for (; b != -1 && b != '\n'; b = input.read()) {
            line.write(b);
            if (line.size() > LONGEST) {
                throw new IllegalArgumentException("Line " + number + " of the input is longer than " + LONGEST + " bytes.");
            }
        }
        try {
            String text = StandardCharsets.UTF_8.newDecoder().decode(ByteBuffer.wrap(line.toByteArray())).toString();
            return text.endsWith("\r") ? text.substring(0, text.length() - 1) : text;
        } catch (CharacterCodingException e) {
            throw new IllegalArgumentException("Line " + number + " of the input is not UTF-8.", e);
        }
    }

    /** The number of the line that was read last. */
    int number() {
        return number;
    }

    @Override
    public void close() throws IOException {
        input.close();
    }
}
