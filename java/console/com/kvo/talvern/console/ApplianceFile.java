package com.kvo.talvern.console;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.console.check.Fit;
import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.LibrarySearch;
import java.io.File;
import java.io.IOException;
import java.nio.channels.FileChannel;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;
import java.nio.file.FileAlreadyExistsException;
import java.nio.file.FileSystemException;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.StandardOpenOption;
import java.nio.file.attribute.PosixFileAttributeView;
import java.nio.file.attribute.PosixFileAttributes;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.Set;
import java.util.concurrent.Callable;
import java.util.function.Consumer;

/** The file in which the simulated appliance is kept, for what is no operation of an appliance. */
final class ApplianceFile {
    /** The variable of the environment that names it. */
    static final String VARIABLE = "TALVERN_APPLIANCE";

    private static final Set<PosixFilePermission> OWNER = PosixFilePermissions.fromString("rw-------");

    private static final int MOST_LINKS = 40;

    private final Path path;

    /** @param name may be that of a link, which stays one */
    ApplianceFile(Path name) throws IOException {
        Path file = name.toAbsolutePath();
        for (int links = 0; links < MOST_LINKS && Files.isSymbolicLink(file); links++) {
            file = file.resolveSibling(Files.readSymbolicLink(file));
        }
        path = file;
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
        return new ApplianceFile(Path.of(name()));
    }

    /** Whether a platform library is the simulated appliance: only that knows the variable. */
    private static boolean isSimulated(File platform) throws IOException {
        return Files.readString(platform.toPath(), StandardCharsets.ISO_8859_1).contains(VARIABLE);
    }

    /** What it holds; nothing if it does not exist, which stands for the appliance as it comes from the factory. */
    Fields read() throws IOException {
        return attempt(() -> read(attributes()));
    }

    /** Changes it while no other process does, and as a whole. */
    void change(Consumer<Fields> change) throws IOException {
        attempt(() -> {
            try {
                Files.createFile(beside(".lock"), PosixFilePermissions.asFileAttribute(OWNER));
                makeLike(beside(".lock"), attributes());
            } catch (FileAlreadyExistsException e) {
                // as always but the first time
            }
            try (FileChannel channel = FileChannel.open(beside(".lock"), StandardOpenOption.WRITE,
                    LinkOption.NOFOLLOW_LINKS)) {
                channel.lock(0, 1, false); // until the channel is closed
                PosixFileAttributes present = attributes();
                Fields document = read(present);
                change.accept(document);
                replace(Json.text(document), present);
            }
            return null;
        });
    }

    private Fields read(PosixFileAttributes present) throws IOException {
        if (present == null) {
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

    private void replace(String text, PosixFileAttributes present) throws IOException {
        Path changed = beside(".new");
        try {
            Files.deleteIfExists(changed); // left by a process that was killed
            Files.createFile(changed, PosixFilePermissions.asFileAttribute(OWNER));
            makeLike(changed, present);
            Files.writeString(changed, text);
            Files.move(changed, path, StandardCopyOption.ATOMIC_MOVE);
        } finally {
            Files.deleteIfExists(changed);
        }
    }

    /** What is known of the file, which the appliance must be able to use; null if it does not exist. */
    private PosixFileAttributes attributes() throws IOException {
        try {
            PosixFileAttributes present = Files.readAttributes(path, PosixFileAttributes.class);
            Refusal.unless(present.isRegularFile(), path + ": is no regular file.");
            Refusal.unless(present.permissions().contains(PosixFilePermission.OWNER_WRITE) && Files.isWritable(path),
                    path + ": is read-only.");
            return present;
        } catch (NoSuchFileException e) {
            return null;
        }
    }

    /** Gives a new file the appliance's mode, whatever the umask is, and, where this user may, owner. */
    private static void makeLike(Path made, PosixFileAttributes present) throws IOException {
        PosixFileAttributeView view = Files.getFileAttributeView(made, PosixFileAttributeView.class);
        if (present != null) {
            try {
                view.setGroup(present.group());
                view.setOwner(present.owner());
            } catch (FileSystemException e) {
                // only root may
            }
        }
        view.setPermissions(present == null ? OWNER : present.permissions());
    }

    /** Does something with the file. What fails names it. */
    private <Result> Result attempt(Callable<Result> action) throws IOException {
        try {
            return action.call();
        } catch (FileSystemException | RuntimeException e) {
            throw e;
        } catch (CharacterCodingException e) {
            throw new Refusal(path + ": a text is not Unicode.");
        } catch (Exception e) {
            throw new Refusal(path + ": " + e.getMessage() + ".");
        }
    }

    private Path beside(String ending) {
        return path.resolveSibling(path.getFileName() + ending);
    }
}
