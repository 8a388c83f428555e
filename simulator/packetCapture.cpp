#include "platform/packetCapture.h"

#include <algorithm>
#include <map>
#include <memory>

#include "memory.h"
#include "platform/ethernetInterfaces.h"

namespace {

using talvern::packetCapture::CaptureInfo;

constexpr int notFound = 2;
constexpr int notRunning = 4;
constexpr int stillRunning = 5;

struct State {
    std::map<std::string, CaptureInfo> captures;
};
Memory<State> memory;

bool isInterface(const std::string& name) {
    const std::unique_ptr<std::vector<std::string>> names{talvern::ethernetInterfaces::getInterfaceNames()};
    return std::find(names->begin(), names->end(), name) != names->end();
}

}  // namespace

namespace talvern::packetCapture {

// NOLINTBEGIN(performance-unnecessary-value-param): these prototypes are the platform's

// No packets pass, so no limit is reached and a capture runs until it is stopped.
InterfaceState
sStartPacketCapture(std::string interfaceName, std::string fileName, std::string /*filter*/,
                    unsigned int /*snapLength*/, unsigned long /*maxBytes*/, unsigned int /*maxSeconds*/,
                    unsigned int /*maxPackets*/, bool /*isPromiscuous*/) {
    if (!isInterface(interfaceName)) return unknownInterface;
    if (fileName.empty()) return invalidArguments;
    return memory.use([&](State& state) {
        CaptureInfo& capture =
            state.captures.try_emplace(interfaceName, CaptureInfo{interfaceName, noCapture, {}})
                .first->second;
        if (capture.state == capturing) return alreadyCapturing;
        capture.state = capturing;
        capture.files.push_back(fileName);
        return capturing;
    });
}

std::int32_t sStopPacketCapture(std::string interfaceName) {
    return memory.use([&](State& state) {
        const auto capture = state.captures.find(interfaceName);
        if (capture == state.captures.end()) return notFound;
        if (capture->second.state != capturing) return notRunning;
        capture->second.state = stopped;
        return 0;
    });
}

std::int32_t sRemoveCapture(std::string interfaceName) {
    return memory.use([&](State& state) {
        const auto capture = state.captures.find(interfaceName);
        if (capture == state.captures.end()) return notFound;
        if (capture->second.state == capturing) return stillRunning;
        state.captures.erase(capture);
        return 0;
    });
}

CaptureInfo sGetCaptureInfo(std::string interfaceName) {
    return memory.use([&](State& state) {
        const auto capture = state.captures.find(interfaceName);
        return capture == state.captures.end() ? CaptureInfo{interfaceName, noCapture, {}} : capture->second;
    });
}

// NOLINTEND(performance-unnecessary-value-param)

std::vector<std::string> sGetAllCapturedInterfaces() {
    return memory.use([](State& state) {
        std::vector<std::string> names;
        for (const auto& [name, capture] : state.captures) names.push_back(name);
        return names;
    });
}

}  // namespace talvern::packetCapture
