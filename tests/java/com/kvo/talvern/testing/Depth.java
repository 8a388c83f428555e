package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.Value;
import java.util.concurrent.Callable;

/** Deep trees on small stacks. */
public final class Depth {
    private static final int[] STACK_KIB = {192, 256, 512, 1024, 8192};
    private static final int[] LEVELS = {1, 2, 999, 1000, 1001, 10_000, 100_000};

    private Depth() {}

    /** What neither gave a result nor a clear exception, or empty. */
    public static String surprises() throws InterruptedException {
        StringBuilder surprises = new StringBuilder();
        ServiceUtils service = new ServiceUtils();
        for (int levels : LEVELS) {
            Value tree = tree(levels);
            for (int stack : STACK_KIB) {
                String where = levels + " levels, " + stack + " KiB";
                surprises.append(outcome(where + ", as XML", stack, levels, tree::asXML));
                surprises.append(outcome(where + ", to the platform", stack, levels,
                        () -> service.updateObject("type", "", "name", tree, false)));
                surprises.append(outcome(where + ", from the platform", stack, levels,
                        () -> service.queryObject(String.valueOf(levels), "", "")));
            }
        }
        return surprises.toString();
    }

    /** Structures and lists in turn, with a text at the end. */
    private static Value tree(int levels) {
        Value tree = new SimpleValue("end", false);
        for (int level = 1; level < levels; level++) {
            if (level % 2 == 0) {
                StructValue parent = new StructValue(true);
                parent.put("key", tree);
                tree = parent;
            } else {
                ArrayValue parent = new ArrayValue(true);
                parent.add(tree);
                tree = parent;
            }
        }
        return tree;
    }

    private static String outcome(String what, int stackKib, int levels, Callable<?> call)
            throws InterruptedException {
        Throwable[] thrown = new Throwable[1];
        Thread thread = new Thread(null, () -> {
            try {
                call.call();
            } catch (Throwable t) {
                thrown[0] = t;
            }
        }, what, stackKib * 1024L);
        thread.start();
        thread.join();
        boolean isExpected = thrown[0] instanceof StackOverflowError
                || (levels <= 1000 ? thrown[0] == null
                        : thrown[0] instanceof TalvernException && thrown[0].getMessage().contains("1000"));
        return isExpected ? "" : what + ": " + thrown[0] + "\n";
    }
}
