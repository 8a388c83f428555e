package com.kvo.talvern.console.check;

import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.LibrarySearch;
import com.kvo.talvern.internal.SymbolNames;
import java.io.File;
import java.io.IOException;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;

/**
 * Compares a platform library with what the bridge calls, and the system with what both need to be loaded. What can't
 * be read is an {@link UnreadableFile}.
 */
final class PlatformSide {
    private final LibrarySearch bridge;
    private final Set<String> operations;
    private final List<Finding> findings;
    private final Map<String, LibrarySearch> loaded = new LinkedHashMap<>();
    private boolean isAllLoaded = true;

    PlatformSide(ElfLibrary bridge, List<Finding> findings) throws IOException {
        this.bridge = new LibrarySearch(bridge);
        this.operations = bridge.importsFrom(Fit.PLATFORM);
        this.findings = findings;
    }

    int operations() {
        return operations.size();
    }

    /** The platform library that the linker would take, or the first that it finds and can't use. */
    List<File> find() {
        File found = bridge.find(Fit.PLATFORM);
        return found != null ? List.of(found)
                : bridge.files(Fit.PLATFORM).stream().limit(1).collect(Collectors.toList());
    }

    /** The first of several files stands for the platform library. */
    void compare(List<File> files) {
        if (files.isEmpty()) {
            findings.add(new Finding("platform", "library", Fit.PLATFORM, null, "missing. Looked in: "
                    + bridge.folders().stream().map(File::getPath).collect(Collectors.joining(", "))
                    + ", and the system's library folders"));
            return;
        }
        for (File file : files) {
            LibrarySearch given = load(loaded.isEmpty() ? Fit.PLATFORM : null, file, bridge);
            if (isForeign(given)) {
                findings.add(new Finding("platform", "processor", given.library().architecture(), null,
                        "the bridge is for " + bridge.library().architecture()));
            }
        }
        String processor = LibrarySearch.architecture();
        if (processor == null || processor.equals(bridge.library().architecture())) {
            loadOthers();
            compareVersions();
            findOwnRuntimes();
        } else {
            findings.add(new Finding("bridge", "processor", bridge.library().architecture(), null,
                    "this JVM is for " + processor));
        }
        compareOperations();
    }

    private LibrarySearch load(String name, File file, LibrarySearch user) {
        LibrarySearch library = new LibrarySearch(UnreadableFile.library(file), user);
        loaded.put(name == null ? library.library().name() : name, library);
        return library;
    }

    private boolean isForeign(LibrarySearch library) {
        return !library.library().architecture().equals(bridge.library().architecture());
    }

    /** All that the linker would load with the bridge. */
    private void loadOthers() {
        Set<String> missing = new HashSet<>();
        Deque<LibrarySearch> users = new ArrayDeque<>(loaded.values());
        users.removeIf(this::isForeign);
        users.addFirst(bridge);
        while (!users.isEmpty()) {
            LibrarySearch user = users.remove();
            for (String name : user.library().needed()) {
                File file = loaded.containsKey(name) ? null : user.find(name);
                if (file != null) {
                    users.add(load(name, file, user));
                } else if (!loaded.containsKey(name) && missing.add(name)) {
                    findings.add(new Finding(party(user), "library", name, null, "missing, needed by "
                            + user.library().file()));
                    isAllLoaded = false;
                }
            }
        }
    }

    private void compareVersions() {
        List<LibrarySearch> users = new ArrayList<>(loaded.values());
        users.add(bridge);
        for (LibrarySearch user : users) {
            user.library().neededVersions().forEach((name, versions) -> {
                ElfLibrary provider = loaded.containsKey(name) ? loaded.get(name).library() : user.library();
                versions.stream().filter(version -> !provider.versions().isEmpty()
                        && !provider.versions().contains(version)).forEach(version -> findings.add(
                        new Finding(party(user), "version", version, null, "missing in " + provider.file()
                                + ", needed by " + user.library().file())));
            });
        }
    }

    /**
     * Code that unwinds the stack, linked in, does not work together with that of the shared C++ runtime, which
     * the bridge's functions need when an exception passes them.
     */
    private void findOwnRuntimes() {
        loaded.forEach((name, library) -> {
            Set<String> imports = library.library().imports();
            boolean unwinds = imports.contains("_dl_find_object") || imports.contains("dl_iterate_phdr");
            boolean isShared = imports.contains("__cxa_throw") || imports.contains("_Unwind_RaiseException")
                    || library.library().exports().contains("_Unwind_RaiseException");
            if (unwinds && !isShared) {
                findings.add(new Finding("platform", "runtime", name, null, "has its own code for exceptions, which would"
                        + " end the JVM. Link " + library.library().file() + " without -static-libgcc"));
            }
        });
    }

    private String party(LibrarySearch library) {
        return library == bridge ? "bridge" : "platform";
    }

    private void compareOperations() {
        Set<String> missing = new HashSet<>(operations);
        loaded.values().forEach(library -> missing.removeAll(library.library().exports()));
        if (missing.isEmpty() || !isAllLoaded) { // the library that is not there may have them
            return;
        }
        Map<String, Set<String>> offered = loaded.values().stream()
                .flatMap(library -> library.library().exports().stream())
                .collect(Collectors.groupingBy(SymbolNames::readable, Collectors.toSet()));
        Demangler.names(missing).forEach((symbol, name) -> {
            Set<String> others = offered.getOrDefault(SymbolNames.readable(symbol), Set.of());
            findings.add(new Finding("platform", "operation", name, symbol, others.isEmpty() ? "missing"
                    : "missing, there is " + String.join(", ", Demangler.names(others).values()), header(symbol)));
        });
    }

    /** The header that declares an operation: that of its namespace, but the configuration's has several. */
    private static String header(String symbol) {
        String[] names = SymbolNames.readable(symbol).split("::");
        if (names.length < 3 || !names[0].equals("talvern")) {
            return null;
        }
        String header = names[1];
        if (header.equals("config")) {
            header = names[2].equals("messaging") ? "messaging" : names[2].equals("Value") ? "value" : "configService";
        }
        return "platform/" + header + ".h";
    }
}
