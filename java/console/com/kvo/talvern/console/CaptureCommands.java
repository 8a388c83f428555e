package com.kvo.talvern.console;

import com.kvo.talvern.appliance.PacketCapture;
import com.kvo.talvern.appliance.PacketCapture.kwInterfaceState;

/** Packet captures. */
final class CaptureCommands extends Group {
    private static final String INTERFACE = "The name of an interface.";

    CaptureCommands() {
        super("capture", "Captures packets on the network interfaces, at most one capture on each.");
    }

    @Override
    void addCommands() {
        change("start", "Starts a capture.", command -> {
            kwInterfaceState state = new PacketCapture().startPacketCapture(command.text("INTERFACE"), command.text("FILE"),
                    command.option("--filter", ""), command.option("--snap-length", -1), command.option("--max-bytes", 0),
                    command.option("--max-seconds", 0), command.option("--max-packets", 0));
            Refusal.unless(state == kwInterfaceState.CAPTURING, "Not started: " + words(state) + ".");
        }).parameter("INTERFACE", INTERFACE).parameter("FILE", "The file to write on the appliance.")
                .option("--filter", "TEXT", String.class, "Which packets to take; all without it.")
                .option("--snap-length", "BYTES", Integer.class, "How much of each packet to keep; all without it.")
                .option("--max-bytes", "BYTES", Integer.class, "End when the file is so long.")
                .option("--max-seconds", "SECONDS", Integer.class, "End after so long.")
                .option("--max-packets", "NUMBER", Integer.class, "End after so many packets.");
        change("stop", "Stops a capture and keeps its files.", command -> Refusal.unlessZero(
                new PacketCapture().stopPacketCapture(command.text("INTERFACE")), "capture"))
                .parameter("INTERFACE", INTERFACE);
        change("remove", "Forgets a capture and deletes its files.", command -> Refusal.unlessZero(
                new PacketCapture().removeCapture(command.text("INTERFACE")), "capture")).parameter("INTERFACE", INTERFACE);
        show("list", "Lists the captures, running or ended.", command -> new Fields().and("captures", captures()));
        show("info", "Shows the capture of an interface.", command ->
                (Fields) Values.plain(new PacketCapture().getCaptureInfo(command.text("INTERFACE"))))
                .parameter("INTERFACE", INTERFACE);
    }

    /** All captures. */
    static Table captures() {
        PacketCapture capture = new PacketCapture();
        return Table.of(capture.getAllCapturedInterfaces().stream().map(capture::getCaptureInfo).toArray(),
                "interfaceName", "state", "files");
    }

    private static String words(Enum<?> constant) {
        return constant == null ? "unknown" : constant.name().toLowerCase().replace('_', ' ');
    }
}
