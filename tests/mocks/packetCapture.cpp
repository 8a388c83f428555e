#include "mocks/packetCapture.h"

#include "mocks/mock.h"

namespace talvern::packetCapture {

InterfaceState sStartPacketCapture(std::string interfaceName, std::string fileName, std::string filter,
                                   unsigned int snapLength, unsigned long maxBytes, unsigned int maxSeconds,
                                   unsigned int maxPackets, bool isPromiscuous) {
    return platform::operation(&PacketCaptureMock::start, interfaceName, fileName, filter, snapLength,
                               maxBytes, maxSeconds, maxPackets, isPromiscuous);
}
std::int32_t sStopPacketCapture(std::string interfaceName) {
    return platform::operation(&PacketCaptureMock::stop, interfaceName);
}
std::int32_t sRemoveCapture(std::string interfaceName) {
    return platform::operation(&PacketCaptureMock::remove, interfaceName);
}
std::vector<std::string> sGetAllCapturedInterfaces() {
    return platform::operation(&PacketCaptureMock::allInterfaces);
}
CaptureInfo sGetCaptureInfo(std::string interfaceName) {
    return platform::operation(&PacketCaptureMock::info, interfaceName);
}

}  // namespace talvern::packetCapture
