package com.kvo.talvern.bench;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DNSUtils;
import com.kvo.talvern.appliance.EthernetInterfaces;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.NTPUtils;
import com.kvo.talvern.appliance.NodeName;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.lang.management.ManagementFactory;
import java.util.ArrayList;
import java.util.List;
import java.util.Objects;
import java.util.concurrent.BrokenBarrierException;
import java.util.concurrent.CyclicBarrier;

/** The calls that are measured: of each, the bridge's, the floor's and, where there is one, JNA's. */
final class Cases {
    private interface Call {
        Object run();
    }

    private static final class Case {
        final String name;
        final int size;
        final Call[] ways;

        Case(String name, int size, Call... ways) {
            this.name = name;
            this.size = size;
            this.ways = ways;
        }
    }

    private static final String LIST_OUT = "list out";

    private static final List<Case> ALL = new ArrayList<>();
    private static final Floor FLOOR = new Floor();

    private static volatile Object sink;
    private static String[] texts;
    private static Value tree;

    static {
        ApplianceUtils appliance = new ApplianceUtils();
        NodeName node = new NodeName();
        DNSUtils dns = new DNSUtils();
        NTPUtils ntp = new NTPUtils();
        EthernetInterfaces ethernet = new EthernetInterfaces();
        HardwareStatusUtils hardware = new HardwareStatusUtils();
        ServiceUtils service = new ServiceUtils();

        add("pass-through", 1, appliance::getCPUCount, FLOOR::getCPUCount, Jna::talvern_getCPUCount);
        add("text out", 1, node::getNodeName, FLOOR::getNodeName, Jna::talvern_getNodeName);
        add("text in", 1, () -> node.setNodeName("rack-7"), () -> FLOOR.setNodeName("rack-7"),
                () -> Jna.talvern_setNodeName("rack-7") == 0);
        add("enum by ordinal", 1, hardware::getIntrusionStatus, FLOOR::getIntrusionStatus);
        add("enum by name", 1, () -> service.getAdminState("type", "parent", "name"),
                () -> FLOOR.getAdminState(service, "type", "parent", "name"));
        add("map", 10, () -> ethernet.getEthernetInterface("eth0"), () -> FLOOR.getEthernetInterface("eth0"));
        add("record array", 10, hardware::getFanStatus, FLOOR::getFanStatus);
        add("nested record array", 10, hardware::getRaidVolumes, FLOOR::getRaidVolumes);
        addAllSizes(LIST_OUT, dns::getNameServers, FLOOR::getNameServers);
        addAllSizes("list in", () -> ntp.setTimeServers(texts), () -> FLOOR.setTimeServers(texts));
        addAllSizes("tree out", () -> service.queryObject("type", "parent", "name"),
                () -> FLOOR.queryObject(service, "type", "parent", "name"));
        addAllSizes("tree in", () -> service.validateObject("type", tree),
                () -> FLOOR.validateObject(service, "type", tree));
        add("spin loop", 1, () -> spin(1000), () -> spin(1000));
    }

    private Cases() {}

    private static void add(String name, int size, Call... ways) {
        ALL.add(new Case(name, size, ways));
    }

    /**
     * One size after the other: what the JVM keeps of the largest trees, scattered in memory, would slow what
     * comes after it.
     */
    private static void addAllSizes(String name, Call... ways) {
        for (int size : new int[] {10, 100, 1000, 10_000, 100_000, 1_000_000}) {
            add(name, size, ways);
        }
    }

    private static int spin(int turns) {
        int state = turns;
        for (int i = 0; i < turns; i++) {
            state = state * 1103515245 + 12345;
        }
        return state;
    }

    static int count() {
        return ALL.size();
    }

    static String name(int index) {
        return ALL.get(index).name;
    }

    static int size(int index) {
        return ALL.get(index).size;
    }

    static int ways(int index) {
        return ALL.get(index).ways.length;
    }

    /** Prepares the data of a case. What differs between the ways, as text; null if nothing does. */
    static String prepare(int index) {
        Case chosen = ALL.get(index);
        FLOOR.setSize(chosen.size);
        FLOOR.makeLists(1);
        texts = FLOOR.getNameServers();
        tree = FLOOR.queryObject(new ServiceUtils(), "type", "parent", "name");
        Object expected = null;
        String difference = null;
        for (int way = chosen.ways.length - 1; way >= 0; way--) {
            makeReady(index, 1);
            FLOOR.setRecording(true);
            Object[] outcome = {chosen.ways[way].run(), FLOOR.received()};
            if (expected != null && !Objects.deepEquals(outcome, expected)) {
                difference = "the results of " + chosen.name + " differ";
            }
            expected = outcome;
        }
        FLOOR.setRecording(false);
        return difference;
    }

    /** Lets the platform make ready what it will hand out in this many calls; to be done before these. */
    static void makeReady(int index, int calls) {
        if (ALL.get(index).name.equals(LIST_OUT)) {
            FLOOR.makeLists(calls);
        }
    }

    /** The bytes on the heap that this thread has allocated so far. */
    static long javaBytes() {
        return ((com.sun.management.ThreadMXBean) ManagementFactory.getThreadMXBean())
                .getThreadAllocatedBytes(Thread.currentThread().getId());
    }

    /** The time that the calls take together, in nanoseconds. */
    static long time(int index, int way, int calls) {
        Call call = ALL.get(index).ways[way];
        long start = System.nanoTime();
        run(call, calls);
        return System.nanoTime() - start;
    }

    /** The same, while a second thread makes as many. */
    static long timeOfTwoThreads(int index, int way, int calls) {
        Call call = ALL.get(index).ways[way];
        CyclicBarrier barrier = new CyclicBarrier(2);
        Thread other = new Thread(() -> {
            await(barrier);
            run(call, calls);
            await(barrier);
        });
        other.start();
        await(barrier);
        long start = System.nanoTime();
        run(call, calls);
        await(barrier);
        return System.nanoTime() - start;
    }

    private static void run(Call call, int calls) {
        Object last = null; // not a field in the loop: two threads would wait for each other's writes
        for (int i = 0; i < calls; i++) {
            last = call.run();
        }
        sink = last;
    }

    private static void await(CyclicBarrier barrier) {
        try {
            barrier.await();
        } catch (InterruptedException | BrokenBarrierException e) {
            throw new IllegalStateException(e);
        }
    }
}
