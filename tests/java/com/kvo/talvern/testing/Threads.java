package com.kvo.talvern.testing;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DiskSnapShot;
import com.kvo.talvern.appliance.EthernetInterfaces;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.HostsUtils;
import com.kvo.talvern.appliance.NodeName;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import com.kvo.talvern.user.UserUtils;
import java.util.Arrays;
import java.util.HashSet;
import java.util.List;
import java.util.Queue;
import java.util.Set;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.atomic.AtomicInteger;

/** Many threads at work at once. */
public final class Threads {
    private static final String TYPE = "ApplicationData";
    private static final int THREADS = 64;
    private static final int ROUNDS = 20;

    private Threads() {}

    /** What each thread does. */
    private interface Work {
        void run(int thread) throws Exception;
    }

    /** Does the work on that many threads at once; what went wrong, or empty. */
    private static String atOnce(int count, Work work) throws InterruptedException {
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        CountDownLatch start = new CountDownLatch(1);
        Thread[] threads = new Thread[count];
        for (int i = 0; i < count; i++) {
            int number = i;
            threads[i] = new Thread(() -> {
                try {
                    start.await();
                    work.run(number);
                } catch (Exception | AssertionError e) {
                    faults.add("thread " + number + ": " + e);
                }
            });
            threads[i].start();
        }
        start.countDown();
        for (Thread thread : threads) {
            thread.join();
        }
        return String.join("\n", faults);
    }

    /** Mixed calls, on receivers of each thread and on one in common; what went wrong, or empty. */
    public static String mixedCalls() throws InterruptedException {
        ServiceUtils shared = new ServiceUtils();
        String faults = atOnce(THREADS, number -> {
            String own = "thread-" + number;
            for (int round = 1; round <= ROUNDS; round++) {
                names(own);
                hosts(own, "10.0.0." + number);
                ServiceUtils service = round % 2 == 0 ? new ServiceUtils() : shared;
                config(service, own, Values.random(number * ROUNDS + round));
                check(service == shared || service.getReturnCode() == ReturnCode.NOT_FOUND,
                        "somebody else's return code");
                users(own);
                disks();
                network(own);
            }
        });
        Set<String> objects = new HashSet<>(shared.getNamesofObject(TYPE, ""));
        check(objects.size() == THREADS, "objects are lost: " + objects);
        return faults;
    }

    private static void names(String own) {
        NodeName nodeName = new NodeName();
        check(nodeName.setNodeName(own), "the name is refused");
        check(nodeName.getNodeName().startsWith("thread-"), "somebody else's name");
    }

    private static void hosts(String own, String address) {
        HostsUtils hosts = new HostsUtils();
        check(hosts.setHostnames(address, own, own + ".example"), "the host is refused");
        check(Arrays.equals(hosts.getHostnames(address), new String[] {own, own + ".example"}),
                "somebody else's host names");
        check(hosts.deleteHostnames(address), "the host is lost");
    }

    private static void config(ServiceUtils service, String own, Value[] sentAndExpected) {
        ReturnCode code = service.createObject(TYPE, "", own, sentAndExpected[0], AdminState.ENABLED, true);
        if (sentAndExpected[0] == null) {
            check(code == ReturnCode.NULL_VALUE, "a null value is answered with " + code);
        } else {
            check(code == ReturnCode.OK, "the object is refused: " + code);
            check(sentAndExpected[1].equals(service.queryObject(TYPE, "", own)), "somebody else's object");
            try {
                service.validateObject("LogTarget", sentAndExpected[1]);
                throw new AssertionError("a nonsensical value is accepted");
            } catch (TalvernException e) {
                check(service.getReturnCode() != null, "no return code");
            }
        }
        check(service.queryObject(TYPE, "", own + "x") == null, "an object from nowhere");
    }

    private static void users(String own) {
        List<String> users = Arrays.asList(new UserUtils().listUsers());
        check(users.contains("admin"), "no administrator");
        check(!new UserUtils().authenticateUser(own, "password"), "a user from nowhere");
    }

    private static void disks() {
        DiskSnapShot[] disks = new HardwareStatusUtils().getRaidPhysicalDiskStatus();
        check(disks.length == 2 && !disks[0].equals(disks[1]), "other disks");
    }

    private static void network(String own) {
        try {
            new ApplianceUtils().triggerException(own);
            check(false, "no exception");
        } catch (TalvernException e) {
            check(own.equals(e.getMessage()), "somebody else's exception");
        }
        check("lo".equals(new EthernetInterfaces().getEthernetInterfaceStatus("lo").getName()), "another interface");
    }

    /** Two upgrades at once, each with a callback, what went wrong, or empty. */
    public static String upgrades() throws InterruptedException {
        Queue<String> wrongReports = new ConcurrentLinkedQueue<>();
        AtomicInteger reports = new AtomicInteger();
        String faults = atOnce(2, number ->
                new FirmwareManagerUtils().upgradeFirmware("talvern-2.0.img", false, true, (done, total, code) -> {
                    if (code == null || done > total) {
                        wrongReports.add("a report of " + done + " of " + total + ", " + code);
                    }
                    reports.incrementAndGet();
                }));
        check(reports.get() > 0, "no report");
        return faults + String.join("\n", wrongReports);
    }

    private static void check(boolean holds, String otherwise) {
        if (!holds) {
            throw new AssertionError(otherwise);
        }
    }
}
