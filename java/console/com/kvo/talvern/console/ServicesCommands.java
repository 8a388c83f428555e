package com.kvo.talvern.console;

import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.SNMPUtils;
import com.kvo.talvern.services.ServicesUtils;

/** The appliance's services. */
final class ServicesCommands extends Group {
    private static final String TEST = "The name of a test.";

    ServicesCommands() {
        super("services", "Shows, controls and tests the services.");
    }

    @Override
    void addCommands() {
        show("ready", "Shows which services run, and which of them answer from the network.", command ->
                new Fields().and("services", services()));
        Group snmp = group("snmp", "Controls the SNMP daemon.");
        snmp.change("start", "Starts it.", command ->
                Refusal.unless(new SNMPUtils().startSNMP(), "It was not started; maybe it runs already."));
        snmp.change("stop", "Stops it.", command ->
                Refusal.unless(new SNMPUtils().stopSNMP(), "It was not stopped; maybe it does not run."));
        snmp.change("restart", "Stops it if it runs, and starts it.", command ->
                Refusal.unless(new SNMPUtils().restartSNMP(), "It does not run now."));
        Group test = group("test", "Tests services.");
        test.change("start", "Runs a test again and again.", command -> Refusal.unlessZero(
                new ServicesUtils().startTest(command.text("TEST"), command.number("SECONDS")), "test"))
                .parameter("TEST", TEST).number("SECONDS", "The time from one run to the next.");
        test.change("stop", "Ends what `start` started.", command -> Refusal.unlessZero(
                new ServicesUtils().stopTest(command.text("TEST")), "test")).parameter("TEST", TEST);
        test.change("perform", "Runs a test now.", command ->
                new ServicesUtils().performTest(command.text("TEST"), command.option("--count", 1)))
                .parameter("TEST", TEST).option("--count", "NUMBER", Integer.class, "How many times; once without it.");
    }

    /** The services and whether they run. */
    static Table services() {
        HardwareStatusUtils status = new HardwareStatusUtils();
        String[] names = {"configuration", "process manager", "firmware manager", "user manager"};
        Table table = new Table("service", "ready", "netReady");
        for (int i = 0; i < names.length; ++i) {
            table.add(new Fields().and("service", names[i]).and("ready", status.isServiceReady(i))
                    .and("netReady", status.isNetServiceReady(i)));
        }
        return table;
    }
}
