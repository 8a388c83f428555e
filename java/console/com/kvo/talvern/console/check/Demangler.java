package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.SymbolNames;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.concurrent.CompletableFuture;

/** The names in the source of a library's symbols. */
final class Demangler {
    private static final String STRING = "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >";

    private Demangler() {}

    /** Each symbol's name; with parameters where this machine has a tool that knows them. */
    static Map<String, String> names(Collection<String> symbols) {
        Map<String, String> names = new LinkedHashMap<>();
        symbols.forEach(symbol -> names.put(symbol, SymbolNames.readable(symbol)));
        names.keySet().removeIf(symbol -> !symbol.matches("_Z\\w+"));
        if (!names.isEmpty()) {
            try {
                addParameters(names);
            } catch (IOException e) {
                // There is no such tool; the names without parameters do.
            }
        }
        symbols.forEach(symbol -> names.putIfAbsent(symbol, symbol));
        return names;
    }

    private static void addParameters(Map<String, String> names) throws IOException {
        Process process = new ProcessBuilder("c++filt").redirectError(ProcessBuilder.Redirect.DISCARD).start();
        byte[] lines = String.join("\n", names.keySet()).concat("\n").getBytes(StandardCharsets.UTF_8);
        CompletableFuture.runAsync(() -> {
            try (OutputStream input = process.getOutputStream()) {
                input.write(lines);
            } catch (IOException e) {
                // It has ended, which the reader will see.
            }
        });
        try (BufferedReader output =
                new BufferedReader(new InputStreamReader(process.getInputStream(), StandardCharsets.UTF_8))) {
            for (Map.Entry<String, String> name : names.entrySet()) {
                String line = output.readLine();
                name.setValue(line == null ? name.getValue() : shortened(line));
            }
        }
    }

    /** As the header has it. */
    private static String shortened(String name) {
        return name.replace(STRING, "std::string").replaceAll(", std::allocator<[^<>]+> >", ">").replace("[abi:cxx11]", "");
    }
}
