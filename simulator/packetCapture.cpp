#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "memory.h"
#include "simulated.h"

namespace talvern::packetCapture {

static const auto& namesOf(InterfaceState) {
    static constexpr std::array names{"noCapture",        "capturing",        "stopped", "finished",
                                      "alreadyCapturing", "unknownInterface", "failed",  "invalidArguments"};
    return names;
}

}  // namespace talvern::packetCapture

namespace talvern::packetCapture::simulated {

namespace {

using talvern::packetCapture::InterfaceState;

constexpr int notFound = 2;
constexpr int notRunning = 4;
constexpr int stillRunning = 5;

struct Capture {
    InterfaceState state = talvern::packetCapture::noCapture;
    std::vector<std::string> files = {};
};

template <typename Members>
void describe(Members& members, Capture& capture) {
    members("state", capture.state);
    members("files", capture.files);
}

using Captures = std::map<std::string, Capture>;  // by the name of the interface
auto& memory = Memory<Captures>::make("captures");

bool isInterface(const std::string& name) {
    const std::unique_ptr<std::vector<std::string>> names{talvern::ethernetInterfaces::simulated::getInterfaceNames()};
    return std::find(names->begin(), names->end(), name) != names->end();
}

}  // namespace

// NOLINTBEGIN(performance-unnecessary-value-param): these prototypes are the platform's

// No packets pass, so no limit is reached and a capture runs until it is stopped.
InterfaceState sStartPacketCapture(
    std::string interfaceName, std::string fileName, std::string /*filter*/, unsigned int /*snapLength*/,
    unsigned long /*maxBytes*/, unsigned int /*maxSeconds*/, unsigned int /*maxPackets*/, bool /*isPromiscuous*/) {
    if (!isInterface(interfaceName)) return unknownInterface;
    if (fileName.empty()) return invalidArguments;
    return memory.change([&](Captures& captures) {
        Capture& capture = captures[interfaceName];
        if (capture.state == capturing) return alreadyCapturing;
        capture.state = capturing;
        capture.files.push_back(fileName);
        return capturing;
    });
}

std::int32_t sStopPacketCapture(std::string interfaceName) {
    return memory.change([&](Captures& captures) {
        const auto capture = captures.find(interfaceName);
        if (capture == captures.end()) return notFound;
        if (capture->second.state != capturing) return notRunning;
        capture->second.state = stopped;
        return 0;
    });
}

std::int32_t sRemoveCapture(std::string interfaceName) {
    return memory.change([&](Captures& captures) {
        const auto capture = captures.find(interfaceName);
        if (capture == captures.end()) return notFound;
        if (capture->second.state == capturing) return stillRunning;
        captures.erase(capture);
        return 0;
    });
}

CaptureInfo sGetCaptureInfo(std::string interfaceName) {
    return memory.read([&](const Captures& captures) {
        const auto capture = captures.find(interfaceName);
        if (capture == captures.end()) return CaptureInfo{interfaceName, noCapture, {}};
        return CaptureInfo{interfaceName, capture->second.state, capture->second.files};
    });
}

// NOLINTEND(performance-unnecessary-value-param)

std::vector<std::string> sGetAllCapturedInterfaces() {
    return memory.read([](const Captures& captures) {
        std::vector<std::string> names;
        for (const auto& [name, capture] : captures) names.push_back(name);
        return names;
    });
}

}  // namespace talvern::packetCapture::simulated
