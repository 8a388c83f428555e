#include "platform/firmwareManagerUtils.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <optional>
#include <string_view>
#include <thread>

#include "memory.h"

namespace talvern::firmwareManagerUtils {

namespace {

enum Status : std::int32_t { success = 0, notFound = 2, notPermitted = 4, busy = 5 };

struct Image {
    std::string_view name;
    bool isReleaseKeyed;
};
constexpr std::array images{Image{"talvern-2.0.img", true}, Image{"talvern-2.1.img", true},
                            Image{"talvern-2.2-beta.img", false}};

struct State {
    Image running = images[0];
    std::optional<Image> previous;
};
// Never destroyed: an upgrade's thread may still run while the process ends.
Memory<State>& memory = *new Memory<State>;

// Not part of the memory: a device reset ends no upgrade.
std::atomic<bool> isUpgrading = false;

std::optional<Image> find(const std::string& name) {
    const auto* found =
        std::find_if(images.begin(), images.end(), [&](const Image& image) { return image.name == name; });
    if (found == images.end()) return std::nullopt;
    return *found;
}

/// The stages of an upgrade, in percent of the whole.
struct Stage {
    FwUpgradeCode code;
    int end;
};
constexpr std::array stages{Stage{FwUpgradeCode::verifying, 20}, Stage{FwUpgradeCode::unpacking, 50},
                            Stage{FwUpgradeCode::writing, 100}};

void install(const Image& image, bool keepPrevious, UpgradeCallback* callback) {
    const auto report = [&](int done, FwUpgradeCode code) {
        if (callback != nullptr) callback->progress(done, 100, code);
    };
    int done = 0;
    for (const auto& [code, end] : stages) {
        for (; done < end; done += 5) {
            report(done, code);
            std::this_thread::sleep_for(std::chrono::milliseconds{50});
        }
    }
    memory.use([&](State& state) {
        state = State{image, keepPrevious ? std::optional{state.running} : std::nullopt};
    });
    isUpgrading = false;
    report(done, FwUpgradeCode::finished);
}

}  // namespace

bool isReleaseKeyed() {
    return memory.use([](State& state) { return state.running.isReleaseKeyed; });
}

std::int32_t rollback() {
    return memory.use([](State& state) {
        if (isUpgrading) return busy;
        if (!state.previous) return notFound;
        state = State{*state.previous, std::nullopt};
        return success;
    });
}

std::int32_t deletePrevious() {
    return memory.use([](State& state) {
        if (!state.previous) return notFound;
        state.previous.reset();
        return success;
    });
}

std::int32_t reflash(const std::string& name) {
    const std::optional<Image> image = find(name);
    if (!image) return notFound;
    return memory.use([&](State& state) {
        if (isUpgrading) return busy;
        state.running = *image;
        return success;
    });
}

std::int32_t upgrade(const std::string& name, bool force, bool keepPrevious, UpgradeCallback* callback) {
    const std::optional<Image> image = find(name);
    if (!image) return notFound;
    if (!image->isReleaseKeyed && !force) return notPermitted;
    if (isUpgrading.exchange(true)) return busy;
    try {
        std::thread{install, *image, keepPrevious, callback}.detach();
    } catch (...) {
        isUpgrading = false;
        throw;
    }
    return success;
}

}  // namespace talvern::firmwareManagerUtils
