package com.kvo.talvern.demo;

import static com.kvo.talvern.demo.Demo.refused;
import static com.kvo.talvern.demo.Demo.show;
import static com.kvo.talvern.demo.Demo.title;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.ComponentFirmware;
import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.appliance.TimeZoneUtils;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.net.InetAddress;
import java.net.ServerSocket;
import java.util.Arrays;

/** Identity, inventory, time, network diagnostics and reset of the appliance. */
final class ApplianceDemo {
    private static final ApplianceUtils APPLIANCE = new ApplianceUtils();
    private static final TimeZoneUtils TIME_ZONES = new TimeZoneUtils();

    private ApplianceDemo() {}

    static void run() {
        identity();
        timeAndLocale();
        diagnostics();
        reset();
    }

    private static void identity() {
        title("Identity");
        show("is an appliance", APPLIANCE.isAppliance());
        show("machine type and model", APPLIANCE.getMTM());
        show("serial number", APPLIANCE.getSerialNumber());
        show("processors", APPLIANCE.getCPUCount());
        show("hardware", APPLIANCE.getHardwareInfo());
        for (ComponentFirmware component : APPLIANCE.getComponentInfo()) {
            show("firmware of component " + component.getComponent(), component.getFirmware());
        }
    }

    private static void timeAndLocale() {
        title("Time and locale");
        show("time zones", Arrays.toString(TIME_ZONES.getTimeZones()));
        show("accepts Europe/Berlin", TIME_ZONES.setConfiguredTimeZone("Europe/Berlin"));
        show("accepts Mars/Olympus", TIME_ZONES.setConfiguredTimeZone("Mars/Olympus"));
        show("time zone", TIME_ZONES.getConfiguredTimeZone());
        show("accepts a clock of 86400", APPLIANCE.setDateTime(86400));
        show("accepts a clock of -1", APPLIANCE.setDateTime(-1));
        show("date", APPLIANCE.getDateTime()[0]);
        show("accepts the locale de_DE", APPLIANCE.setLocale("de_DE", null));
        show("locale", APPLIANCE.getLocale());
        refused("a null locale", () -> APPLIANCE.setLocale(null, null));
    }

    private static void diagnostics() {
        title("Network diagnostics");
        show("state of the network", APPLIANCE.networkReady());
        show("localhost resolves to", APPLIANCE.dnsResolve("localhost"));
        int port;
        try (ServerSocket server = new ServerSocket(0, 1, InetAddress.getLoopbackAddress())) {
            port = server.getLocalPort();
            show("connects to an open port", APPLIANCE.tcpConnect("127.0.0.1", port).isEmpty());
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
        show("connects to a closed port", APPLIANCE.tcpConnect("127.0.0.1", port));
        show("127.0.0.1 answers a ping", APPLIANCE.pingHost("127.0.0.1"));
        refused("a platform failure", () -> APPLIANCE.triggerException("disk 3 does not answer"));
        refused("a thrown number", () -> APPLIANCE.triggerException("int:"));
    }

    private static void reset() {
        title("Host keys and device reset");
        show("host keys are strong", APPLIANCE.areHostSSHKeysStrong());
        show("status of their reset", APPLIANCE.resetHostSSHKeys());
        show("host keys are strong", APPLIANCE.areHostSSHKeysStrong());
        FileError[] errors = new FileError[3];
        show("status of the device reset", APPLIANCE.deviceRESET(errors));
        show("errors of the device reset", Arrays.toString(errors));
        show("time zone", TIME_ZONES.getConfiguredTimeZone());
        show("locale", APPLIANCE.getLocale());
        refused("a null array", () -> APPLIANCE.deviceRESET(null));
    }
}
