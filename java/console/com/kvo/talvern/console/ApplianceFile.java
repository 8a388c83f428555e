package com.kvo.talvern.console;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.console.check.Fit;
import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.LibrarySearch;
import java.io.File;
import java.io.IOException;
import java.nio.channels.FileChannel;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.StandardOpenOption;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.Set;
import java.util.function.Consumer;

/** The file in which the simulated appliance is kept, for what is no operation of an appliance. */
final class ApplianceFile {
    /** The variable of the environment that names it. */
    static final String VARIABLE = "TALVERN_APPLIANCE";

    private static final Set<PosixFilePermission> OWNER = PosixFilePermissions.fromString("rw-------");

    private final Path path;

    private ApplianceFile(Path path) {
        this.path = path;
    }

    /** The file's name; null if the appliance is kept in memory. */
    static String name() {
        String name = System.getenv(VARIABLE);
        return name == null || name.isEmpty() ? null : name;
    }

    /** The file that the environment names; a refusal if there is none, or if the appliance is a real one. */
    static ApplianceFile get() throws IOException {
        File platform = new LibrarySearch(ElfLibrary.read(NativeLibrary.file())).find(Fit.PLATFORM);
        Refusal.unless(platform != null && isSimulated(platform), "The platform library is no simulated appliance"
                + (platform == null ? "." : ": " + platform));
        Refusal.unless(name() != null, "The appliance is in this process's memory, not in a file: see --appliance.");
        Path path = Path.of(name());
        return new ApplianceFile(Files.exists(path) ? path.toRealPath() : path.toAbsolutePath());
    }

    /** Whether a platform library is the simulated appliance: only that knows the variable. */
    private static boolean isSimulated(File platform) throws IOException {
        return Files.readString(platform.toPath(), StandardCharsets.ISO_8859_1).contains(VARIABLE);
    }

    /** What it holds; nothing if it does not exist, which stands for the appliance as it comes from the factory. */
    Fields read() throws IOException {
        if (!Files.exists(path)) {
            return new Fields();
        }
        try {
            Object document = Json.readExactly(Files.readString(path, StandardCharsets.UTF_8));
            Refusal.unless(document instanceof Fields, path + ": is no JSON object.");
            return (Fields) document;
        } catch (IllegalArgumentException e) {
            throw new Refusal(path + ": " + e.getMessage());
        }
    }

    /** Changes it while no other process does, and as a whole. */
    void change(Consumer<Fields> change) throws IOException {
        Path lock = beside(".lock");
        Path changed = beside(".new");
        try (FileChannel channel = FileChannel.open(lock, Set.of(StandardOpenOption.CREATE,
                StandardOpenOption.WRITE), PosixFilePermissions.asFileAttribute(OWNER))) {
            channel.lock(0, 1, false); // until the channel is closed
            Fields document = read();
            change.accept(document);
            Set<PosixFilePermission> mode = Files.exists(path) ? Files.getPosixFilePermissions(path)
                    : OWNER;
            Files.deleteIfExists(changed);
            Files.createFile(changed, PosixFilePermissions.asFileAttribute(mode));
            Files.setPosixFilePermissions(changed, mode);
            Files.writeString(changed, Json.text(document));
            Files.move(changed, path, StandardCopyOption.ATOMIC_MOVE);
        }
    }

    private Path beside(String ending) {
        return path.resolveSibling(path.getFileName() + ending);
    }
}
