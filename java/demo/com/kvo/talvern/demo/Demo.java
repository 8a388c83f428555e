package com.kvo.talvern.demo;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.NodeName;

/** Shows what a management application does through the bridge, on the simulated appliance. */
public final class Demo {
    private Demo() {}

    /**
     * @param arguments none
     */
    public static void main(String[] arguments) {
        nodeName();
        NetworkDemo.run();
        HardwareDemo.run();
        UsersDemo.run();
        CaptureDemo.run();
        ServicesDemo.run();
        ApplianceDemo.run();
        LifecycleDemo.run();
        ConfigDemo.run();
    }

    private static void nodeName() {
        title("Node name");
        NodeName nodeName = new NodeName();
        show("the appliance is called", nodeName.getNodeName());
        show("accepts the name rack-7", nodeName.setNodeName("rack-7"));
        show("is called now", nodeName.getNodeName());
        show("accepts the name 'not a host name'", nodeName.setNodeName("not a host name"));
        refused("a null name", () -> nodeName.setNodeName(null));
        nodeName.initNodeName();
    }

    /** Prints a heading. */
    static void title(String title) {
        System.out.printf("%n%s%n%s%n", title, title.replaceAll(".", "-"));
    }

    /** Prints one fact. */
    static void show(String what, Object value) {
        System.out.printf("  %-40s %s%n", what, value);
    }

    /** Runs a call that the appliance must refuse, and prints the exception that arrives. */
    static void refused(String what, Runnable call) {
        try {
            call.run();
            throw new AssertionError(what + " was accepted");
        } catch (TalvernException e) {
            show(what + " is refused", e.getClass().getSimpleName() + ": " + e.getMessage());
        }
    }
}
