package com.kvo.talvern.console;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.console.check.Finding;
import com.kvo.talvern.console.check.Fit;
import java.io.File;
import java.net.URISyntaxException;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import picocli.CommandLine.Model.OptionSpec;

/** Whether the three parties of an installation fit together. */
final class CheckCommand extends ConsoleCommand {
    private List<File> jars;
    private File bridge;
    private List<File> platforms;

    CheckCommand() {
        super("check", "Tells whether Java classes, bridge and platform library fit together. Reads the files and"
                + " loads none of them.");
        spec.addOption(fileOption("--jar").type(List.class).auxiliaryTypes(File.class).description(
                "A jar with the Java classes; repeatable. By default the one beside the console.").build());
        spec.addOption(fileOption("--bridge").type(File.class).description(
                "The bridge. By default the one that a Java program would load.").build());
        spec.addOption(fileOption("--platform").type(List.class).auxiliaryTypes(File.class).description(
                "The platform library; repeatable if it is made of several. By default the one beside the bridge or"
                + " in the library path.").build());
    }

    private static OptionSpec.Builder fileOption(String name) {
        return OptionSpec.builder(name).paramLabel("FILE");
    }

    @Override
    protected int run(Output output) throws Exception {
        findFiles();
        Fit fit = new Fit(jars, bridge, platforms);
        output.result(values(fit), () -> show(fit, output));
        return fit.findings().isEmpty() ? ExitCode.DONE : ExitCode.MISMATCH;
    }

    private void findFiles() throws URISyntaxException {
        jars = option("--jar", List.of());
        bridge = option("--bridge", null);
        platforms = option("--platform", List.of());
        if (jars.isEmpty()) {
            jars = List.of(new File(
                    NativeLibrary.class.getProtectionDomain().getCodeSource().getLocation().toURI()));
        }
        if (bridge == null) {
            bridge = NativeLibrary.file();
        }
        requireFiles(List.of(bridge));
        if (platforms.isEmpty()) {
            platforms = List.of(platformBeside(bridge.getAbsoluteFile()));
        }
        requireFiles(jars);
        requireFiles(platforms);
    }

    private void requireFiles(List<File> files) {
        for (File file : files) {
            if (!file.isFile()) {
                throw usageError("There is no file " + file + ".");
            }
        }
    }

    private File platformBeside(File library) {
        List<String> folders = new ArrayList<>();
        folders.addAll(List.of(System.getenv().getOrDefault("LD_LIBRARY_PATH", "").split(File.pathSeparator)));
        folders.add(library.getParent());
        folders.add(library.getParentFile().getParent()); // for .../jni/
        for (String folder : folders) {
            File file = new File(folder, Fit.PLATFORM);
            if (file.isFile()) {
                return file;
            }
        }
        throw usageError("No platform library " + Fit.PLATFORM + " was found; name it with --platform.");
    }

    private Map<String, Object> values(Fit fit) {
        List<Map<String, Object>> findings = new ArrayList<>();
        for (Finding finding : fit.findings()) {
            Map<String, Object> values = new LinkedHashMap<>();
            values.put("party", finding.party);
            values.put("kind", finding.kind);
            values.put("name", finding.name);
            values.put("symbol", finding.symbol);
            values.put("problem", finding.problem);
            findings.add(values);
        }
        Map<String, Object> values = new LinkedHashMap<>();
        values.put("fits", fit.findings().isEmpty());
        values.put("jars", names(jars));
        values.put("bridge", bridge.getPath());
        values.put("platforms", names(platforms));
        values.put("natives", fit.natives());
        values.put("members", fit.members());
        values.put("operations", fit.operations());
        values.put("findings", findings);
        return values;
    }

    private void show(Fit fit, Output output) {
        output.line("Java classes      " + String.join(", ", names(jars)));
        output.line("bridge            " + bridge);
        output.line("platform library  " + String.join(", ", names(platforms)));
        output.line("compared          " + fit.natives() + " native methods, " + fit.members()
                + " other classes and methods, " + fit.operations() + " platform operations");
        output.line("");
        List<List<String>> rows = new ArrayList<>();
        for (Finding finding : fit.findings()) {
            String symbol = finding.symbol == null ? "" : " (" + finding.symbol + ")";
            rows.add(List.of(finding.party, finding.kind, finding.name, finding.problem + symbol));
        }
        if (rows.isEmpty()) {
            output.line(output.good("They fit together."));
        } else {
            output.table(List.of("IN", "WHAT", "NAME", "PROBLEM"), rows);
            output.line("");
            output.line(output.bad("They don't fit together: " + rows.size() + " differences."));
        }
    }

    private static List<String> names(List<File> files) {
        List<String> names = new ArrayList<>();
        files.forEach(file -> names.add(file.getPath()));
        return names;
    }
}
