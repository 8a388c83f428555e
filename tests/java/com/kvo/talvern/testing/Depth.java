package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.FutureTask;

/** Deep trees on small stacks. */
public final class Depth {
    private static final String TYPE = "ApplicationData";

    private Depth() {}

    /** What neither came back nor ended in a clear exception, or empty. */
    public static String surprises() throws InterruptedException {
        StringBuilder surprises = new StringBuilder();
        ServiceUtils service = new ServiceUtils();
        for (int levels : new int[] {1, 2, 999, 1000, 1001, 100_000}) {
            Value tree = Values.nested(levels);
            for (int stackKib : new int[] {192, 8192}) {
                surprises.append(outcome(stackKib, levels, new FutureTask<>(tree::asXML)));
                surprises.append(outcome(stackKib, levels, new FutureTask<>(() -> {
                    service.createObject(TYPE, "", "deep", tree, AdminState.ENABLED, true);
                    if (!service.queryObject(TYPE, "", "deep").asXML().equals(tree.asXML())) {
                        throw new AssertionError("another tree came back");
                    }
                    return service.deleteObject(TYPE, "", "deep");
                })));
            }
        }
        return surprises.toString();
    }

    private static String outcome(int stackKib, int levels, FutureTask<?> task) throws InterruptedException {
        long stack = stackKib * 1024L * Integer.getInteger("talvern.stackFactor"); // sanitized code needs more
        new Thread(null, task, "deep", stack).start();
        Throwable thrown = null;
        try {
            task.get();
        } catch (ExecutionException e) {
            thrown = e.getCause();
        }
        String expected = levels <= 1000 ? "null"
                : TalvernException.class.getName() + ": configuration value deeper than 1000 levels";
        return expected.equals(String.valueOf(thrown)) ? "" : levels + " levels, " + stackKib + " KiB: " + thrown + "\n";
    }
}
