#pragma once

#include "mocks/mock.h"
#include "platform/packetCapture.h"

namespace talvern::packetCapture {

inline void makeHostile(CaptureInfo& info, platform::Hostility hostility) {
    platform::makeHostile(info.interfaceName, hostility);
    platform::makeHostile(info.state, hostility);
    platform::makeHostile(info.files, hostility);
}

}  // namespace talvern::packetCapture

struct PacketCaptureMock {
    using State = talvern::packetCapture::InterfaceState;
    using Info = talvern::packetCapture::CaptureInfo;

    PacketCaptureMock() {
        const Info finished{"eth0", talvern::packetCapture::finished, {"0.pcap", "1.pcap"}};
        ON_CALL(*this, info).WillByDefault(testing::Return(finished));
    }

    MOCK_METHOD(State, start,
                (std::string interfaceName, std::string fileName, std::string filter, unsigned int snapLength,
                 unsigned long maxBytes, unsigned int maxSeconds, unsigned int maxPackets,
                 bool isPromiscuous));
    MOCK_METHOD(std::int32_t, stop, (std::string interfaceName));
    MOCK_METHOD(std::int32_t, remove, (std::string interfaceName));
    MOCK_METHOD(Texts, allInterfaces, ());
    MOCK_METHOD(Info, info, (std::string interfaceName));
};
