package com.kvo.talvern.console;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.console.check.Fit;
import com.kvo.talvern.internal.ElfLibrary;
import com.kvo.talvern.internal.SymbolNames;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Iterator;
import java.util.List;
import java.util.stream.Collectors;

/** Lets the simulated appliance fail or be slow, so that a program's answer to that can be tried. */
final class SimulateCommands extends Group {
    private static final List<String> OUTCOMES = Arrays.asList("exception", "validation", "change", "unknown", "failure");
    private static final String OPERATION = "An operation of the platform library, such as nodeName::set.";
    private static final String NEVER_FAILING = "config::(Value::.*|.*_STR)|log::trace"; // no operations of the appliance
    private static final int LONGEST_DELAY = 3_600_000;
    private static final String TIMES = "How many calls; all without it.";

    SimulateCommands() {
        super("simulate", "Lets the simulated appliance fail or be slow, until that is cleared, for all processes that share"
                + " it.");
    }

    @Override
    void addCommands() {
        change("fail", "Lets an operation fail, in place of what was set for it before.", command -> {
            String outcome = command.option("--outcome", "exception");
            if (!OUTCOMES.contains(outcome)) {
                throw command.usageError("--outcome is one of " + String.join(", ", OUTCOMES) + ".");
            }
            String text = String.join(" ", command.list("TEXT"));
            Fields fault = new Fields().and("outcome", outcome);
            set(command, text.isEmpty() ? fault : fault.and("text", text));
        }).completedBy(SimulateCommands::operations).parameter("OPERATION", OPERATION)
                .list("TEXT", "0..*", "The text of the exception.")
                .option("--outcome", "OUTCOME", String.class, "What becomes of the call: exception (without it), validation or"
                        + " change (the configuration service's exceptions), unknown (an exception of no known type), failure"
                        + " (the operation's own failing answer).")
                .option("--times", "NUMBER", Integer.class, TIMES);
        change("slow", "Lets an operation take longer, in place of what was set for it before.", command ->
                set(command, new Fields().and("delay", command.number("MILLISECONDS"))))
                .completedBy(SimulateCommands::operations).parameter("OPERATION", OPERATION)
                .number("MILLISECONDS", "How much longer.").option("--times", "NUMBER", Integer.class, TIMES);
        show("list", "Lists what was set.", command -> {
            Table table = new Table("operation", "outcome", "text", "delay ms", "times");
            faults(ApplianceFile.get().read()).forEach(fault -> table.add((Fields) fault));
            return new Fields().and("faults", table);
        });
        change("clear", "Lets operations work as always.", command -> {
            List<String> chosen = command.list("OPERATION");
            ApplianceFile.get().change(appliance -> replace(appliance, chosen.isEmpty() ? List.of()
                    : without(appliance, chosen)));
        }).completedBy(SimulateCommands::operations).list("OPERATION", "0..*", "The operations; all without it.");
    }

    private static void set(ActionCommand command, Fields fault) throws IOException {
        String operation = command.text("OPERATION");
        Integer times = command.option("--times", null);
        List<String> known = new ArrayList<>();
        operations().forEachRemaining(known::add);
        if (!known.contains(operation)) {
            throw command.usageError("There is no operation " + operation + Nearest.hint(operation, known));
        }
        int delay = (Integer) fault.getOrDefault("delay", 0);
        if (times != null && times < 1 || delay < 0 || delay > LONGEST_DELAY) {
            throw command.usageError("A number is too small, or a delay above " + LONGEST_DELAY + ".");
        }
        Fields named = new Fields().and("operation", operation);
        named.putAll(fault);
        if (times != null) {
            named.put("times", times);
        }
        ApplianceFile.get().change(appliance -> {
            List<Object> faults = new ArrayList<>(without(appliance, List.of(operation)));
            faults.add(named);
            replace(appliance, faults);
        });
    }

    private static List<?> faults(Fields appliance) {
        Object faults = appliance.getOrDefault("faults", List.of());
        Refusal.unless(faults instanceof List && ((List<?>) faults).stream().allMatch(Fields.class::isInstance),
                "The appliance's faults are no list of objects.");
        return (List<?>) faults;
    }

    private static List<?> without(Fields appliance, List<String> operations) {
        return faults(appliance).stream().filter(fault -> !operations.contains(((Fields) fault).get("operation")))
                .collect(Collectors.toList());
    }

    private static void replace(Fields appliance, List<?> faults) {
        appliance.put("faults", faults);
    }

    /** The names of all operations that can fail: those that the bridge calls. */
    private static Iterator<String> operations() {
        try {
            return ElfLibrary.read(NativeLibrary.file()).importsFrom(Fit.PLATFORM).stream()
                    .filter(symbol -> symbol.matches("_ZNK?7talvern.*")).map(SymbolNames::readable)
                    .map(name -> name.substring("talvern::".length())).filter(name -> !name.matches(NEVER_FAILING))
                    .distinct().sorted().iterator();
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }
}
