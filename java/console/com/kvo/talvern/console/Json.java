package com.kvo.talvern.console;

import com.fasterxml.jackson.core.JsonFactory;
import com.fasterxml.jackson.core.JsonGenerator;
import com.fasterxml.jackson.core.JsonParser;
import com.fasterxml.jackson.core.JsonProcessingException;
import com.fasterxml.jackson.core.JsonToken;
import com.fasterxml.jackson.core.util.DefaultPrettyPrinter;
import java.io.IOException;
import java.io.StringWriter;
import java.io.Writer;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;

/** Reads and writes JSON. */
final class Json {
    private static final int MOST_LEVELS = 1000;

    private Json() {}

    /** A value as {@link #write} writes it. */
    static String text(Object value) throws IOException {
        StringWriter text = new StringWriter();
        write(text, value);
        return text.toString();
    }

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

    /**
     * @return what a document holds: fields, lists, texts (also for numbers and truth values) and nulls
     * @throws IllegalArgumentException if it is not exactly one document; the message says why
     */
    static Object read(String document) {
        return read(document, false);
    }

    /** As {@link #read}, but numbers and truth values are what they are. */
    static Object readExactly(String document) {
        return read(document, true);
    }

    private static Object read(String document, boolean isExact) {
        try (JsonParser parser = new JsonFactory().enable(JsonParser.Feature.STRICT_DUPLICATE_DETECTION)
                .createParser(document)) {
            Object value = read(parser, parser.nextToken(), MOST_LEVELS, isExact);
            if (parser.nextToken() != null) {
                throw new IllegalArgumentException("There is something behind the JSON value.");
            }
            return value;
        } catch (JsonProcessingException e) {
            String where = e.getLocation() == null ? "" : " in line " + e.getLocation().getLineNr();
            throw new IllegalArgumentException("Wrong JSON" + where + ": " + e.getOriginalMessage() + ".", e);
        } catch (IOException e) {
            throw new IllegalStateException(e);
        }
    }

    private static Object read(JsonParser parser, JsonToken token, int levels, boolean isExact) throws IOException {
        if (token == null) {
            throw new IllegalArgumentException("There is no JSON value.");
        } else if (levels == 0) {
            throw new IllegalArgumentException("The JSON has more than " + MOST_LEVELS + " levels.");
        }
        if (token == JsonToken.START_OBJECT) {
            Fields fields = new Fields();
            while (parser.nextToken() != JsonToken.END_OBJECT) {
                fields.put(parser.currentName(), read(parser, parser.nextToken(), levels - 1, isExact));
            }
            return fields;
        } else if (token == JsonToken.START_ARRAY) {
            List<Object> list = new ArrayList<>();
            for (JsonToken next = parser.nextToken(); next != JsonToken.END_ARRAY; next = parser.nextToken()) {
                list.add(read(parser, next, levels - 1, isExact));
            }
            return list;
        }
        if (isExact && token == JsonToken.VALUE_NUMBER_INT) {
            return parser.getBigIntegerValue();
        } else if (isExact && token == JsonToken.VALUE_NUMBER_FLOAT) {
            return parser.getDecimalValue();
        } else if (isExact && token.isBoolean()) {
            return parser.getBooleanValue();
        }
        return token == JsonToken.VALUE_NULL ? null : parser.getText();
    }
}
