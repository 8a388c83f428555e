package com.kvo.talvern.demo;

import static com.kvo.talvern.demo.Demo.refused;
import static com.kvo.talvern.demo.Demo.show;
import static com.kvo.talvern.demo.Demo.title;

import com.kvo.talvern.appliance.PacketCapture;

/** Packet captures. */
final class CaptureDemo {
    private CaptureDemo() {}

    static void run() {
        title("Packet captures");
        PacketCapture capture = new PacketCapture();
        show("a capture on eth0", start(capture, "eth0", 60));
        show("another one on eth0", start(capture, "eth0", 60));
        show("one on an interface that is not there", start(capture, "eth9", 60));
        show("one for -1 seconds", start(capture, "eth1", -1));
        show("interfaces with a capture", capture.getAllCapturedInterfaces());
        show("the capture", capture.getCaptureInfo("eth0"));
        show("status of stopping it", capture.stopPacketCapture("eth0"));
        show("the capture now", capture.getCaptureInfo("eth0"));
        show("status of removing it", capture.removeCapture("eth0"));
        show("interfaces with a capture", capture.getAllCapturedInterfaces());
        refused("a null interface", () -> capture.getCaptureInfo(null));
    }

    private static PacketCapture.kwInterfaceState start(PacketCapture capture, String name, int seconds) {
        return capture.startPacketCapture(name, name + ".pcap", "tcp port 443", -1, 1_000_000, seconds, 0);
    }
}
