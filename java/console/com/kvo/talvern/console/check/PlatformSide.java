package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.SymbolNames;
import java.io.BufferedReader;
import java.io.File;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;

/** Compares a platform library with what the bridge calls. */
final class PlatformSide {
    private final ElfLibrary bridge;
    private final Set<String> needed;
    private final List<Finding> findings;

    PlatformSide(ElfLibrary bridge, List<Finding> findings) {
        this.bridge = bridge;
        this.needed = bridge.importsFrom(Fit.PLATFORM);
        this.findings = findings;
    }

    int operations() {
        return needed.size();
    }

    void compare(List<File> libraries) {
        Set<String> offered = new HashSet<>();
        for (File file : libraries) {
            try {
                ElfLibrary library = ElfLibrary.read(file);
                offered.addAll(library.exports());
                if (!library.architecture().equals(bridge.architecture())) {
                    findings.add(new Finding("platform", "processor", library.architecture(), null,
                            "the bridge is for " + bridge.architecture()));
                }
            } catch (IOException e) {
                findings.add(new Finding("platform", "file", file.getPath(), null, e.getMessage()));
                return; // what else it has is not known
            }
        }
        List<String> missing = new ArrayList<>(needed);
        missing.removeAll(offered);
        readableNames(missing).forEach((symbol, name) -> findings.add(
                new Finding("platform", "operation", name, symbol, "missing" + othersLike(symbol, offered))));
    }

    private static String othersLike(String symbol, Set<String> offered) {
        String name = SymbolNames.readable(symbol);
        List<String> others = offered.stream()
                .filter(other -> SymbolNames.readable(other).equals(name)).collect(Collectors.toList());
        return others.isEmpty() ? "" : ", there is " + String.join(", ", readableNames(others).values());
    }

    /** The symbols with their names in the source; with parameters where this machine has a tool that knows them. */
    private static Map<String, String> readableNames(List<String> symbols) {
        Map<String, String> names = new LinkedHashMap<>();
        symbols.forEach(symbol -> names.put(symbol, SymbolNames.readable(symbol)));
        if (symbols.isEmpty()) {
            return names;
        }
        List<String> command = new ArrayList<>(symbols);
        command.add(0, "c++filt");
        try {
            Process process = new ProcessBuilder(command).redirectError(ProcessBuilder.Redirect.DISCARD).start();
            try (BufferedReader lines = new BufferedReader(
                    new InputStreamReader(process.getInputStream(), StandardCharsets.UTF_8))) {
                for (String symbol : symbols) {
                    String line = lines.readLine();
                    if (line != null) {
                        names.put(symbol, line.replace("std::__cxx11::basic_string<char, std::char_traits<char>,"
                                + " std::allocator<char> >", "std::string"));
                    }
                }
            }
        } catch (IOException e) {
            // There is no such tool; the names without parameters do.
        }
        return names;
    }
}
