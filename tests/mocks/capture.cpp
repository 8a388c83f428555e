#include "mocks/capture.h"

namespace talvern::packetCapture {

using Mock = PacketCaptureMock;

InterfaceState sStartPacketCapture(std::string interfaceName, std::string fileName, std::string filter,
                                   unsigned int snapLength, unsigned long maxBytes, unsigned int maxSeconds,
                                   unsigned int maxPackets, bool isPromiscuous) {
    return operation(&Mock::start, interfaceName, fileName, filter, snapLength, maxBytes, maxSeconds,
                     maxPackets, isPromiscuous);
}
std::int32_t sStopPacketCapture(std::string interfaceName) { return operation(&Mock::stop, interfaceName); }
std::int32_t sRemoveCapture(std::string interfaceName) { return operation(&Mock::remove, interfaceName); }
Texts sGetAllCapturedInterfaces() { return operation(&Mock::allInterfaces); }
CaptureInfo sGetCaptureInfo(std::string interfaceName) { return operation(&Mock::info, interfaceName); }

}  // namespace talvern::packetCapture
