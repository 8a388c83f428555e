#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "firmware.h"
#include "memory.h"
#include "simulated.h"

namespace {

enum Status : std::int32_t { success = 0, notFound = 2, notPermitted = 4, busy = 5 };

struct Image {
    std::string name;
    bool isReleaseKeyed = false;
};

template <typename Members>
void describe(Members& members, Image& image) {
    members("name", image.name);
    members("isReleaseKeyed", image.isReleaseKeyed);
}

/// An upgrade that goes on, or was broken off.
struct Unfinished {
    std::string image;
    FwUpgradeCode stage{};
    int done = 0;  ///< percent
};

template <typename Members>
void describe(Members& members, Unfinished& upgrade) {
    members("image", upgrade.image);
    members("stage", upgrade.stage);
    members("done", upgrade.done);
}

struct State {
    std::vector<Image> images{{"talvern-2.0.img", true}, {"talvern-2.1.img", true}, {"talvern-2.2-beta.img", false}};
    Image running = images[0];
    std::optional<Image> previous = std::nullopt;
    std::optional<Unfinished> unfinished = std::nullopt;
};

template <typename Members>
void describe(Members& members, State& state) {
    members("images", state.images);
    members("running", state.running);
    members("previous", state.previous);
    members("unfinished", state.unfinished);
}

auto& memory = Memory<State>::make("firmware");

// Not part of the memory: a device reset ends no upgrade.
std::atomic<bool> isUpgrading = false;

/// Whether an upgrade goes on, in any process that has this appliance.
bool isBusy() { return isUpgrading || (isKept && !FileLock::attempt(FileLock::upgrade).isOwner()); }

std::optional<Image> find(const std::string& name) {
    return memory.read([&](const State& state) -> std::optional<Image> {
        const auto found = std::find_if(
            state.images.begin(), state.images.end(), [&](const Image& image) { return image.name == name; });
        if (found == state.images.end()) return std::nullopt;
        return *found;
    });
}

/// The stages of an upgrade, in percent of the whole.
struct Stage {
    FwUpgradeCode code;
    int end;
};
constexpr std::array stages{
    Stage{FwUpgradeCode::verifying, 20}, Stage{FwUpgradeCode::unpacking, 50}, Stage{FwUpgradeCode::writing, 100}};

class Upgrade {
  public:
    Upgrade(Image image, bool keepPrevious, talvern::firmwareManagerUtils::UpgradeCallback* callback)
        : image_{std::move(image)}, keepPrevious_{keepPrevious}, callback_{callback} {}

    /// Holds the lock, if there is one, until all is done.
    void run(std::optional<FileLock> lock) {
        FwUpgradeCode outcome = FwUpgradeCode::failed;
        try {
            install();
            outcome = FwUpgradeCode::finished;
        } catch (...) {
            // The appliance's file can't be written: the upgrade stays unfinished.
        }
        lock.reset();
        isUpgrading = false;
        report(outcome);
    }

  private:
    void install() {
        for (const auto& [stage, end] : stages) {
            for (; done_ < end; done_ += 5) {
                note(stage);
                report(stage);
                std::this_thread::sleep_for(std::chrono::milliseconds{50});
            }
        }
        memory.change([&](State& state) {
            state.previous = keepPrevious_ ? std::optional{state.running} : std::nullopt;
            state.running = image_;
            state.unfinished.reset();
        });
    }

    /// The new firmware is written where the previous one was.
    void note(FwUpgradeCode stage) {
        memory.change([&](State& state) {
            state.unfinished = Unfinished{image_.name, stage, done_};
            if (stage == FwUpgradeCode::writing) state.previous.reset();
        });
    }

    void report(FwUpgradeCode code) {
        if (callback_ != nullptr) callback_->progress(done_, 100, code);
    }

    Image image_;
    bool keepPrevious_;
    talvern::firmwareManagerUtils::UpgradeCallback* callback_;
    int done_ = 0;
};

}  // namespace

static const auto& namesOf(FwUpgradeCode) {
    static constexpr std::array names{"verifying", "unpacking", "writing", "finished", "failed"};
    return names;
}

std::vector<std::string> installedFirmware() {
    return memory.read([](const State& state) {
        std::vector<std::string> firmware{"firmware " + state.running.name};
        if (state.unfinished) {
            firmware.push_back(
                "firmware " + state.unfinished->image +
                ", incomplete: " + namesOf(state.unfinished->stage)[static_cast<std::size_t>(state.unfinished->stage)] +
                ", " + std::to_string(state.unfinished->done) + " %");
        }
        return firmware;
    });
}

namespace talvern::firmwareManagerUtils::simulated {

bool isReleaseKeyed() {
    return memory.read([](const State& state) { return state.running.isReleaseKeyed; });
}

std::int32_t rollback() {
    return memory.change([](State& state) {
        if (isBusy()) return busy;
        if (!state.previous) return notFound;
        state.running = *std::exchange(state.previous, std::nullopt);
        state.unfinished.reset();
        return success;
    });
}

std::int32_t deletePrevious() {
    return memory.change([](State& state) {
        if (isBusy()) return busy;
        if (!state.previous) return notFound;
        state.previous.reset();
        return success;
    });
}

std::int32_t reflash(const std::string& name) {
    const std::optional<Image> image = find(name);
    if (!image) return notFound;
    return memory.change([&](State& state) {
        if (isBusy()) return busy;
        state.running = *image;
        state.unfinished.reset();
        return success;
    });
}

std::int32_t upgrade(const std::string& name, bool force, bool keepPrevious, UpgradeCallback* callback) {
    const std::optional<Image> image = find(name);
    if (!image) return notFound;
    if (!image->isReleaseKeyed && !force) return notPermitted;
    if (isUpgrading.exchange(true)) return busy;
    try {
        std::optional<FileLock> lock;
        if (isKept) lock.emplace(FileLock::attempt(FileLock::upgrade));
        if (lock && !lock->isOwner()) {
            isUpgrading = false;
            return busy;
        }
        std::thread{&Upgrade::run, Upgrade{*image, keepPrevious, callback}, std::move(lock)}.detach();
    } catch (...) {
        isUpgrading = false;
        throw;
    }
    return success;
}

}  // namespace talvern::firmwareManagerUtils::simulated
