package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;
import java.util.Vector;

/**
 * Captures of the packets on the appliance's network interfaces, at most one per interface.
 *
 * <pre>{@code
 * PacketCapture capture = new PacketCapture();
 * PacketCapture.kwInterfaceState state = capture.startPacketCapture("eth0", "web.pcap", "tcp port 443", -1, 0, 60, 0);
 * if (state == PacketCapture.kwInterfaceState.CAPTURING) {
 *     capture.stopPacketCapture("eth0");
 *     System.out.println(capture.getCaptureInfo("eth0").getFiles());
 * }
 * }</pre>
 */
public class PacketCapture {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(PacketCapture.class);

    {
        LIBRARY.require();
    }

    /** The state of an interface's capture, or why none was started. */
    public enum kwInterfaceState {
        /** The interface has no capture. */
        NO_CAPTURE,
        /** The capture runs. */
        CAPTURING,
        /** The capture was stopped by request. */
        STOPPED,
        /** The capture reached a limit. */
        FINISHED,
        /** Not started: a capture runs on this interface. */
        ALREADY_CAPTURING,
        /** Not started: the appliance has no such interface. */
        UNKNOWN_INTERFACE,
        /** Not started, or ended by an error. */
        FAILED,
        /** Not started: an argument is not acceptable. */
        INVALID_ARGUMENTS
    }

    /**
     * Starts a capture.
     *
     * @param interfaceName the interface, not null
     * @param fileName the file to write on the appliance, not null
     * @param filter which packets to take, as a capture filter expression; empty for all, not null
     * @param snapLength how many bytes of each packet to keep; -1 for all
     * @param maxBytes the capture ends when its file is so long; 0 for no limit
     * @param maxSeconds the capture ends after so long; 0 for no limit
     * @param maxPackets the capture ends after so many packets; 0 for no limit
     * @return {@link kwInterfaceState#CAPTURING}, or why the capture was not started;
     *     {@link kwInterfaceState#INVALID_ARGUMENTS} if one of the three limits is negative
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public kwInterfaceState startPacketCapture(String interfaceName, String fileName, String filter,
            int snapLength, int maxBytes, int maxSeconds, int maxPackets) {
        return _startPacketCapture(
                interfaceName, fileName, filter, snapLength, maxBytes, maxSeconds, maxPackets);
    }

    /**
     * Stops a capture and keeps its files.
     *
     * @param interfaceName the interface, not null
     * @return the appliance's status, 0 for success
     */
    public int stopPacketCapture(String interfaceName) {
        return _stopPacketCapture(interfaceName);
    }

    /**
     * Forgets a capture and deletes its files.
     *
     * @param interfaceName the interface, not null
     * @return the appliance's status, 0 for success
     */
    public int removeCapture(String interfaceName) {
        return _removeCapture(interfaceName);
    }

    /**
     * @return the interfaces that have a capture, running or ended, in the appliance's order
     */
    public Vector<String> getAllCapturedInterfaces() {
        return _getAllCapturedInterfaces();
    }

    /**
     * Describes a capture.
     *
     * @param interfaceName the interface, not null
     * @return what is known of its capture
     */
    public CaptureInfo getCaptureInfo(String interfaceName) {
        return _getCaptureInfo(interfaceName);
    }

    private native kwInterfaceState _startPacketCapture(String interfaceName, String fileName, String filter,
            int snapLength, int maxBytes, int maxSeconds, int maxPackets);

    private native int _stopPacketCapture(String interfaceName);

    private native int _removeCapture(String interfaceName);

    private native Vector<String> _getAllCapturedInterfaces();

    private native CaptureInfo _getCaptureInfo(String interfaceName);
}
