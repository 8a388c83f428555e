package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.util.HashSet;
import java.util.Queue;
import java.util.Set;
import java.util.concurrent.Callable;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.FutureTask;

/** Configuration values on their way to the simulated appliance and back. */
public final class ConfigCalls {
    private static final String TYPE = "ApplicationData";
    private static final int THREADS = 8;

    private ConfigCalls() {}

    /** Trees of the greatest depth, and deeper ones, on a thread with a small stack. What went wrong, or empty. */
    public static String deepTrees() throws Exception {
        Value deepest = Values.nested(1000);
        FutureTask<String> task = new FutureTask<>((Callable<String>) () -> {
            ServiceUtils service = new ServiceUtils();
            check(service.createObject(TYPE, "", "deep", deepest, AdminState.ENABLED, true) == ReturnCode.OK,
                    "the deepest tree is refused");
            Value back = service.queryObject(TYPE, "", "deep");
            check(back.asXML().equals(deepest.asXML()), "another tree came back");
            for (Value tooDeep : new Value[] {Values.nested(1001), Values.nested(100_000), Values.inItself()}) {
                try {
                    service.validateObject(TYPE, tooDeep);
                    return "a tree without end is accepted";
                } catch (TalvernException e) {
                    check(e.getMessage().contains("deeper than 1000 levels"), e.getMessage());
                }
            }
            service.deleteObject(TYPE, "", "deep");
            return "";
        });
        Thread thread = new Thread(null, task, "small", 192 * 1024);
        thread.start();
        return task.get();
    }

    /** Threads with receivers of their own and one in common. What went wrong, or empty. */
    public static String threads() throws InterruptedException {
        String configured = System.getenv("TALVERN_TEST_SECONDS");
        long end = System.nanoTime() + 1_000_000_000L * (configured == null ? 2 : Long.parseLong(configured));
        ServiceUtils shared = new ServiceUtils();
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        Thread[] threads = new Thread[THREADS];
        for (int i = 0; i < THREADS; i++) {
            String own = "thread-" + i;
            threads[i] = new Thread(() -> {
                try {
                    for (int rounds = 0; rounds < 10 || System.nanoTime() < end; rounds++) {
                        round(rounds % 2 == 0 ? new ServiceUtils() : shared, own, rounds);
                    }
                } catch (RuntimeException | AssertionError e) {
                    faults.add(own + ": " + e);
                }
            });
            threads[i].start();
        }
        Set<String> expected = new HashSet<>();
        for (Thread thread : threads) {
            thread.join();
        }
        for (int i = 0; i < THREADS; i++) {
            expected.add("thread-" + i);
        }
        Set<String> names = new HashSet<>(shared.getNamesofObject(TYPE, ""));
        check(names.equals(expected), "objects are lost: " + names);
        for (String name : names) {
            shared.deleteObject(TYPE, "", name);
        }
        return String.join("\n", faults);
    }

    private static void round(ServiceUtils service, String own, int number) {
        Value[] tree = Values.random(number);
        ReturnCode code = service.createObject(TYPE, "", own, tree[0], AdminState.ENABLED, true);
        if (tree[0] == null) {
            check(code == ReturnCode.NULL_VALUE, "a null value is answered with " + code);
            return;
        }
        check(code == ReturnCode.OK, "refused: " + code);
        check(tree[1].equals(service.queryObject(TYPE, "", own)), "another value came back");
        check(service.getAdminState(TYPE, "", own) == AdminState.ENABLED, "another state came back");
        try {
            service.validateObject("LogTarget", tree[1]);
            check(false, "a nonsensical value is accepted");
        } catch (TalvernException e) {
            check(service.getReturnCode() != null, "no return code");
        }
    }

    private static void check(boolean holds, String otherwise) {
        if (!holds) {
            throw new AssertionError(otherwise);
        }
    }
}
