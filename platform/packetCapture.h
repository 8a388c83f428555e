#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Captures of the packets on the appliance's network interfaces, at most one per interface.
/// Texts are modified UTF-8, and copies that the operation may keep. Every operation may be called from any
/// thread, and may throw.
namespace talvern::packetCapture {

/// The state of an interface's capture, or why none was started. Java's constants stand in the same order.
enum InterfaceState : std::int32_t {
    noCapture = 0,
    capturing = 1,
    stopped = 2,           ///< by request
    finished = 3,          ///< a limit was reached
    alreadyCapturing = 4,  ///< not started: one runs on this interface
    unknownInterface = 5,  ///< not started
    failed = 6,            ///< not started, or ended by an error
    invalidArguments = 7,  ///< not started; the bridge answers negative limits with it
};

/// An interface's capture.
struct CaptureInfo {
    std::string interfaceName;
    InterfaceState state;
    std::vector<std::string> files;  ///< names of those that hold what was captured, oldest first
};
static_assert(sizeof(InterfaceState) == 4);
static_assert(offsetof(CaptureInfo, state) == sizeof(std::string));
static_assert(offsetof(CaptureInfo, files) == sizeof(std::string) + 8);

/// Starts a capture.
/// @param fileName      the file to write
/// @param filter        which packets to take, as a capture filter expression; empty for all
/// @param snapLength    how many bytes of each packet to keep; Java's -1 arrives as 4294967295, the whole
/// packet
/// @param maxBytes      end when the file is so long; 0 for no limit
/// @param maxSeconds    end after so long; 0 for no limit
/// @param maxPackets    end after so many; 0 for no limit
/// @param isPromiscuous take packets for other hosts, too; the bridge passes false
/// @return `capturing`, or why it was not started
InterfaceState sStartPacketCapture(
    std::string interfaceName, std::string fileName, std::string filter, unsigned int snapLength,
    unsigned long maxBytes, unsigned int maxSeconds, unsigned int maxPackets, bool isPromiscuous);

/// Stops the interface's capture and keeps its files. Returns a status, 0 for success.
std::int32_t sStopPacketCapture(std::string interfaceName);

/// Forgets the interface's capture and deletes its files. Returns a status, 0 for success.
std::int32_t sRemoveCapture(std::string interfaceName);

/// The interfaces that have a capture, running or ended; Java receives them in this order.
std::vector<std::string> sGetAllCapturedInterfaces();

/// Describes the interface's capture.
CaptureInfo sGetCaptureInfo(std::string interfaceName);

}  // namespace talvern::packetCapture
