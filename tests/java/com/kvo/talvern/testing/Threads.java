package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DiskSnapShot;
import com.kvo.talvern.appliance.EthernetInterfaces;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.HostsUtils;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.util.Arrays;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.CyclicBarrier;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.function.IntConsumer;

/** Many threads at work at once. */
public final class Threads {
    private static final String TYPE = "ApplicationData";
    private static final int THREADS = 64;
    private static final int ROUNDS = 20;

    private Threads() {}

    /** Does the work on that many threads at once; what went wrong, or empty. */
    private static String atOnce(int count, IntConsumer work) throws InterruptedException {
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        CyclicBarrier start = new CyclicBarrier(count);
        ExecutorService threads = Executors.newFixedThreadPool(count);
        for (int i = 0; i < count; i++) {
            int number = i;
            threads.execute(() -> {
                try {
                    start.await();
                    work.accept(number);
                } catch (Exception | AssertionError e) {
                    faults.add("thread " + number + ": " + e);
                }
            });
        }
        threads.shutdown();
        threads.awaitTermination(1, TimeUnit.HOURS);
        return String.join("\n", faults);
    }

    /** Mixed calls, on receivers of each thread and on one in common; what went wrong, or empty. */
    public static String mixedCalls() throws InterruptedException {
        ServiceUtils shared = new ServiceUtils();
        String faults = atOnce(THREADS, number -> {
            String own = "thread-" + number;
            for (int round = 1; round <= ROUNDS; round++) {
                texts(own, "10.0.0." + number);
                objects(round % 2 == 0 ? new ServiceUtils() : shared, own, Values.nested(number % 5 + round));
            }
        });
        int objects = shared.getNamesofObject(TYPE, "").size();
        check(objects == THREADS, "objects are lost: " + objects);
        return faults;
    }

    private static void texts(String own, String address) {
        HostsUtils hosts = new HostsUtils();
        check(hosts.setHostnames(address, own, own + ".example"), "the host is refused");
        check(Arrays.equals(hosts.getHostnames(address), new String[] {own, own + ".example"}),
                "somebody else's host names");
        check(hosts.deleteHostnames(address), "the host is lost");
        DiskSnapShot[] disks = new HardwareStatusUtils().getRaidPhysicalDiskStatus();
        check(disks.length == 2 && !disks[0].equals(disks[1]), "other disks");
        EthernetInterfaces interfaces = new EthernetInterfaces();
        check("lo".equals(interfaces.getEthernetInterfaceStatus("lo").getName()), "another interface's status");
        check("eth0".equals(interfaces.getEthernetInterface("eth0").get("name")), "another interface");
        try {
            new ApplianceUtils().triggerException(own);
            check(false, "no exception");
        } catch (TalvernException e) {
            check(own.equals(e.getMessage()), "somebody else's exception");
        }
    }

    private static void objects(ServiceUtils service, String own, Value value) {
        check(service.createObject(TYPE, "", own, value, AdminState.ENABLED, true) == ReturnCode.OK,
                "the object is refused");
        check(value.equals(service.queryObject(TYPE, "", own)), "somebody else's object");
        check(service.queryObject(TYPE, "", own + "x") == null, "an object from nowhere");
    }

    /** Three upgrades at once, one without a callback; what went wrong, or empty. */
    public static String upgrades() throws InterruptedException {
        AtomicInteger made = new AtomicInteger();
        Queue<String> wrongReports = new ConcurrentLinkedQueue<>();
        FirmwareManagerUtils.UpgradeCallback callback = (done, total, code) -> {
            if (code == null || done > total) {
                wrongReports.add("a report of " + done + " of " + total + ", " + code);
            }
        };
        String faults = atOnce(3, number -> {
            if (new FirmwareManagerUtils()
                    .upgradeFirmware("talvern-2.0.img", false, true, number == 2 ? null : callback) == 0) {
                made.incrementAndGet();
            }
        });
        check(made.get() > 0, "no upgrade is made"); // the others are refused
        return faults + String.join("\n", wrongReports);
    }

    private static void check(boolean holds, String otherwise) {
        if (!holds) {
            throw new AssertionError(otherwise);
        }
    }
}
