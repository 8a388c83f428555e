package com.kvo.talvern.console;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.TimeZoneUtils;
import com.kvo.talvern.processmanager.ProcessManagerUtils;
import java.util.Arrays;
import java.util.Objects;

/** The appliance as a whole. */
final class DeviceCommands extends Group {
    static final String RESET = "This resets the appliance: all settings are lost.";
    static final String REBOOT = "This restarts the appliance.";
    static final String SHUTDOWN = "This switches the appliance off.";
    private static final int MOST_ERRORS = 1000;

    DeviceCommands() {
        super("device", "Restarts, switches off and resets the appliance, and changes what concerns it as a whole.");
    }

    @Override
    void addCommands() {
        change("reboot", "Restarts the appliance.", command ->
                Refusal.unlessZero(new ProcessManagerUtils().requestReboot(), "appliance")).confirmed(REBOOT);
        change("shutdown", "Switches the appliance off.", command ->
                Refusal.unlessZero(new ProcessManagerUtils().requestShutdown(), "appliance")).confirmed(SHUTDOWN);
        show("reset", "Brings the appliance back to its initial state.", command -> {
            FileError[] errors = new FileError[MOST_ERRORS];
            int status = new ApplianceUtils().deviceRESET(errors);
            Table files = Table.of(Arrays.stream(errors).filter(Objects::nonNull).toArray(), "file", "error");
            command.output().show(new Fields().and("status", status).and("filesNotReset", files));
            Refusal.unless(status == 0, "The appliance could not reset everything: status " + status + ".");
            return null;
        }).confirmed(RESET);
        show("timezone", "Shows or changes the time zone.", command -> {
            TimeZoneUtils zones = new TimeZoneUtils();
            if (command.text("ZONE") != null) {
                Refusal.unless(zones.setConfiguredTimeZone(command.text("ZONE")),
                        "The appliance does not know this time zone.");
            }
            return new Fields().and("timeZone", zones.getConfiguredTimeZone()).and("timeZones", zones.getTimeZones());
        }).optional("ZONE", "The new time zone.");
        show("locale", "Shows or changes the locale.", command -> {
            ApplianceUtils appliance = new ApplianceUtils();
            if (command.text("LOCALE") != null) {
                Refusal.unless(appliance.setLocale(command.text("LOCALE"), command.option("--modifier", null)),
                        "The appliance does not know this locale.");
            }
            return new Fields().and("locale", appliance.getLocale());
        }).optional("LOCALE", "The new locale.")
                .option("--modifier", "TEXT", String.class, "What else the appliance needs to know of the locale.");
        change("led", "Switches the light by which the appliance is found in its rack.", command -> {
            if (!command.text("on|off").matches("on|off")) {
                throw command.usageError("It can be `on` or `off`.");
            }
            new HardwareStatusUtils().setLocateLED(command.text("on|off").equals("on"));
        }).completedBy(Arrays.asList("on", "off")).parameter("on|off", "Whether it shall shine.");
    }
}
