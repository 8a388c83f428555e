package com.kvo.talvern.demo;

import static com.kvo.talvern.demo.Demo.refused;
import static com.kvo.talvern.demo.Demo.show;
import static com.kvo.talvern.demo.Demo.title;

import com.kvo.talvern.appliance.SNMPUtils;
import com.kvo.talvern.services.ServicesUtils;

/** The SNMP daemon and tests of services. */
final class ServicesDemo {
    private ServicesDemo() {}

    static void run() {
        title("SNMP and service tests");
        SNMPUtils snmp = new SNMPUtils();
        show("SNMP was started", snmp.startSNMP());
        show("was started again", snmp.startSNMP());
        show("runs after a restart", snmp.restartSNMP());
        show("was stopped", snmp.stopSNMP());

        ServicesUtils services = new ServicesUtils();
        show("status of testing storage every minute", services.startTest("storage", 60));
        show("of testing 'coffee' every minute", services.startTest("coffee", 60));
        services.performTest("network", 3);
        show("of ending the test of storage", services.stopTest("storage"));
        refused("a test without a name", () -> services.performTest(null, 1));
    }
}
