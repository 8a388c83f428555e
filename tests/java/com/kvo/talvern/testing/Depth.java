package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.util.concurrent.Callable;

/** Deep trees on small stacks. */
public final class Depth {
    private static final int[] STACK_KIB = {192, 256, 512, 1024, 8192};
    private static final int[] LEVELS = {1, 2, 999, 1000, 1001, 2000, 100_000};

    /** The deepest tree that the mocked platform makes: it is destroyed on these stacks, too. */
    private static final int DEEPEST_OF_PLATFORM = 2000;

    /** Sanitized code needs more of a stack. */
    private static final int FACTOR = Integer.getInteger("talvern.stackFactor", 1);

    private Depth() {}

    /** What neither gave a result nor a clear exception, or empty. */
    public static String surprises() throws InterruptedException {
        StringBuilder surprises = new StringBuilder();
        ServiceUtils service = new ServiceUtils();
        for (int levels : LEVELS) {
            Value tree = Values.nested(levels);
            for (int stack : STACK_KIB) {
                String where = levels + " levels, " + stack + " KiB";
                surprises.append(outcome(where + ", as XML", stack, levels, tree::asXML));
                surprises.append(outcome(where + ", to the platform", stack, levels,
                        () -> service.updateObject("type", "", "name", tree, false)));
                if (levels <= DEEPEST_OF_PLATFORM) {
                    surprises.append(outcome(where + ", from the platform", stack, levels,
                            () -> service.queryObject(String.valueOf(levels), "", "")));
                }
            }
        }
        return surprises.toString();
    }

    /** The same with the simulated appliance: the deepest tree must come back, a deeper one must not arrive. */
    public static String surprisesOfTheAppliance() throws InterruptedException {
        ServiceUtils service = new ServiceUtils();
        return outcome("there and back", STACK_KIB[0], 1000, () -> {
            Value tree = Values.nested(1000);
            service.createObject("ApplicationData", "", "deep", tree, AdminState.ENABLED, true);
            if (!service.queryObject("ApplicationData", "", "deep").asXML().equals(tree.asXML())) {
                throw new AssertionError("another tree came back");
            }
            return service.deleteObject("ApplicationData", "", "deep");
        }) + outcome("a deeper one", STACK_KIB[0], 1001,
                () -> service.validateObject("ApplicationData", Values.nested(1001)));
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
        }, what, stackKib * 1024L * FACTOR);
        thread.start();
        thread.join();
        boolean isExpected = thrown[0] instanceof StackOverflowError
                || (levels <= 1000 ? thrown[0] == null
                        : thrown[0] instanceof TalvernException && thrown[0].getMessage().contains("1000"));
        return isExpected ? "" : what + ": " + thrown[0] + "\n";
    }
}
