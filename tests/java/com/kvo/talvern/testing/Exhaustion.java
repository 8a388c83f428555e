package com.kvo.talvern.testing;

import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.SimpleValue;
import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.concurrent.CountDownLatch;

/** Converts a value for which there is not enough memory, on a thread that has thrown nothing yet. */
public final class Exhaustion {
    private static final long LEFT = 32 << 20;

    private Exhaustion() {}

    public static void main(String[] arguments) throws Exception {
        ArrayValue value = new ArrayValue(false);
        SimpleValue element = new SimpleValue("text", false);
        for (int i = 0; i < 1_000_000; i++) {
            value.add(element);
        }
        ServiceUtils service = new ServiceUtils();
        int types = service.getObjectTypes().size();
        CountDownLatch isShort = new CountDownLatch(1);
        Thread thread = new Thread(() -> {
            try {
                isShort.await();
                service.validateObject("UserGroup", value);
            } catch (Exception e) {
                System.out.println(e);
            }
        });
        thread.start();
        new ProcessBuilder("prlimit", "--pid", Paths.get("/proc/self").toRealPath().getFileName().toString(), "--as=" + (inUse() + LEFT))
                .inheritIO().start().waitFor();
        isShort.countDown();
        thread.join();
        System.out.println(service.getObjectTypes().size() == types ? "alive" : "lost");
    }

    private static long inUse() throws Exception {
        return 4096 * Long.parseLong(new String(Files.readAllBytes(Paths.get("/proc/self/statm")), "UTF-8").split(" ")[0]);
    }
}
