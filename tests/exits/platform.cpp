// A platform that the end of the process finds at work: it reports an upgrade from a thread of its own, at
// any moment, and is destroyed only after that thread has ended. Loaded before the simulated appliance, whose
// upgrade it replaces.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <stop_token>
#include <thread>

#include "platform/firmwareManagerUtils.h"

/// Takes the place of the C library's, with which the bridge would wait after an upgrade.
extern "C" unsigned sleep(unsigned) { return 0; }

namespace talvern::firmwareManagerUtils {

std::int32_t upgrade(const std::string&, bool, bool, UpgradeCallback* callback) {
    std::atexit([] { std::fputs("destroyed\n", stderr); });
    static std::jthread reports;                         // destroyed after what the bridge makes from here on
    callback->progress(0, 2, FwUpgradeCode::verifying);  // a thread of Java's, which may end the JVM later
    reports = std::jthread{[=](const std::stop_token& isOver) {
        std::mt19937 random{std::random_device{}()};
        // One report after the other, or some time apart.
        std::uniform_int_distribution<int> microseconds{0, random() % 2 == 0 ? 100 : 200'000};
        while (!isOver.stop_requested()) {
            callback->progress(1, 2, FwUpgradeCode::writing);
            std::this_thread::sleep_for(std::chrono::microseconds{microseconds(random)});
        }
    }};
    return 0;
}

}  // namespace talvern::firmwareManagerUtils
