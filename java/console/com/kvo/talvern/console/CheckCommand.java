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
    private static final List<String> NOT_COMPARED = List.of("what operations return", "the layout of records");

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
                "The platform library; repeatable if it is made of several. By default the one"
                + " that a Java program would load.").build());
    }

    private static OptionSpec.Builder fileOption(String name) {
        return OptionSpec.builder(name).paramLabel("FILE");
    }

    @Override
    protected int run(Output output) throws Exception {
        findFiles();
        Fit fit = new Fit(jars, bridge, platforms);
        platforms = fit.platforms();
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
        requireFiles(jars);
        requireFiles(List.of(bridge));
        requireFiles(platforms);
    }

    private void requireFiles(List<File> files) {
        for (File file : files) {
            if (!file.isFile()) {
                throw usageError("There is no file " + file + ".");
            }
        }
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
            values.put("header", finding.header);
            findings.add(values);
        }
        Map<String, Object> values = new LinkedHashMap<>();
        values.put("fits", fit.findings().isEmpty());
        values.put("jars", names(jars));
        values.put("bridge", bridge.getPath());
        values.put("platforms", names(platforms));
        values.put("appliance", ApplianceFile.name());
        values.put("natives", fit.natives());
        values.put("members", fit.members());
        values.put("operations", fit.operations());
        values.put("notCompared", NOT_COMPARED);
        values.put("findings", findings);
        return values;
    }

    private void show(Fit fit, Output output) {
        output.line("Java classes      " + String.join(", ", names(jars)));
        output.line("bridge            " + bridge);
        output.line("platform library  " + (platforms.isEmpty() ? "(none)" : String.join(", ", names(platforms))));
        output.line("simulated         in " + (ApplianceFile.name() == null ? "memory" : ApplianceFile.name())
                + "; a real appliance takes no notice");
        output.line("compared          " + fit.natives() + " native methods, " + fit.members()
                + " classes and methods, " + fit.operations() + " operations");
        output.line("not compared      " + String.join(", ", NOT_COMPARED));
        output.line("");
        if (fit.findings().isEmpty()) {
            output.line(output.good("They fit together."));
            return;
        }
        Map<String, List<List<String>>> tables = new LinkedHashMap<>();
        for (Finding finding : fit.findings()) {
            String heading = "In the " + finding.party + (finding.header == null ? "" : ", " + finding.header);
            tables.computeIfAbsent(heading, key -> new ArrayList<>())
                    .add(List.of(finding.kind, finding.name, finding.problem));
        }
        tables.forEach((heading, rows) -> {
            output.line(output.heading(heading));
            output.table(List.of("WHAT", "NAME", "PROBLEM"), rows);
            output.line("");
        });
        output.line(output.bad("They don't fit together: " + fit.findings().size() + " differences."));
    }

    private static List<String> names(List<File> files) {
        List<String> names = new ArrayList<>();
        files.forEach(file -> names.add(file.getPath()));
        return names;
    }
}
