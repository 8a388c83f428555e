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
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import com.kvo.talvern.user.UserUtils;
import java.util.Arrays;
import java.util.List;
import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.atomic.AtomicInteger;

/** Many threads at work at once. */
public final class Threads {
    private static final int THREADS = 64;
    private static final int ROUNDS = 20;

    private Threads() {}

    /** Runs mixed calls on all threads at once; what went wrong, or empty. */
    public static String mixedCalls() throws InterruptedException {
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        CountDownLatch start = new CountDownLatch(1);
        Thread[] threads = new Thread[THREADS];
        for (int i = 0; i < THREADS; i++) {
            int number = i;
            String own = "thread-" + i;
            threads[i] = new Thread(() -> {
                try {
                    start.await();
                    for (int round = 0; round < ROUNDS; round++) {
                        names(own);
                        hosts(own, "10.0.0." + number);
                        config(own);
                        users(own);
                        disks();
                        network(own);
                    }
                } catch (Exception | AssertionError e) {
                    faults.add(own + ": " + e);
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

    private static void config(String own) {
        ServiceUtils service = new ServiceUtils();
        StructValue value = new StructValue(false);
        value.put("owner", new SimpleValue(own, true));
        service.createObject("ApplicationData", "", own, value, AdminState.ENABLED, true);
        check(service.getReturnCode() == ReturnCode.OK, "the object is refused");
        check(value.equals(service.queryObject("ApplicationData", "", own)), "somebody else's object");
        check(service.queryObject("ApplicationData", "", own + "x") == null, "an object from nowhere");
        check(service.getReturnCode() == ReturnCode.NOT_FOUND, "somebody else's return code");
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

    /** Two upgrades at once, each with a callback, while others are at work; what went wrong, or empty. */
    public static String upgrades() throws InterruptedException {
        Queue<String> faults = new ConcurrentLinkedQueue<>();
        AtomicInteger reports = new AtomicInteger();
        Thread[] threads = new Thread[2];
        for (int i = 0; i < threads.length; i++) {
            threads[i] = new Thread(() -> {
                try {
                    new FirmwareManagerUtils().upgradeFirmware("talvern-2.0.img", false, true, (done, total, code) -> {
                        if (code == null || done > total) {
                            faults.add("a report of " + done + " of " + total + ", " + code);
                        }
                        reports.incrementAndGet();
                    });
                } catch (TalvernException e) {
                    faults.add(e.toString());
                }
            });
            threads[i].start();
        }
        for (Thread thread : threads) {
            thread.join();
        }
        check(reports.get() > 0, "no report");
        return String.join("\n", faults);
    }

    private static void check(boolean holds, String otherwise) {
        if (!holds) {
            throw new AssertionError(otherwise);
        }
    }
}
