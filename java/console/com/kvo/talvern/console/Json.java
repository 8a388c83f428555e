package com.kvo.talvern.console;

import com.fasterxml.jackson.core.JsonFactory;
import com.fasterxml.jackson.core.JsonGenerator;
import com.fasterxml.jackson.core.util.DefaultPrettyPrinter;
import java.io.IOException;
import java.io.Writer;
import java.util.Map;

/** Writes JSON. */
final class Json {
    private Json() {}

    /** Writes a value of maps, iterables, texts, numbers, truth values and nulls as one document. */
    static void write(Writer writer, Object value) throws IOException {
        JsonGenerator generator = new JsonFactory().createGenerator(writer).setPrettyPrinter(new DefaultPrettyPrinter());
        generator.disable(JsonGenerator.Feature.AUTO_CLOSE_TARGET);
        write(generator, value);
        generator.writeRaw('\n');
        generator.close();
    }

    private static void write(JsonGenerator generator, Object value) throws IOException {
        if (value instanceof Map) {
            generator.writeStartObject();
            for (Map.Entry<?, ?> entry : ((Map<?, ?>) value).entrySet()) {
                generator.writeFieldName(entry.getKey().toString());
                write(generator, entry.getValue());
            }
            generator.writeEndObject();
        } else if (value instanceof Iterable) {
            generator.writeStartArray();
            for (Object element : (Iterable<?>) value) {
                write(generator, element);
            }
            generator.writeEndArray();
        } else {
            generator.writeObject(value);
        }
    }
}
