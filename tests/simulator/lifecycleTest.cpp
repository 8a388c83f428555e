#include <condition_variable>
#include <gmock/gmock.h>
#include <mutex>

#include "platform/firmwareManagerUtils.h"
#include "platform/processManagerUtils.h"

using namespace talvern;

namespace {

/// Keeps the reports of one upgrade.
class Reports : public firmwareManagerUtils::UpgradeCallback {
  public:
    void progress(int done, int total, FwUpgradeCode code) override {
        const std::lock_guard lock{mutex_};
        EXPECT_EQ(total, 100);
        EXPECT_GT(done, done_);
        EXPECT_GE(code, code_);
        done_ = done;
        code_ = code;
        changed_.notify_all();
    }

    /// Waits until the upgrade is over; how much of it was done.
    int awaitEnd() {
        std::unique_lock lock{mutex_};
        changed_.wait(lock, [&] { return code_ >= FwUpgradeCode::finished; });
        return done_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int done_ = -1;
    FwUpgradeCode code_{};
};

TEST(FirmwareManager, UpgradesAndGoesBack) {
    using namespace firmwareManagerUtils;
    const auto callback = std::make_unique<Reports>();
    EXPECT_NE(upgrade("unknown.img", true, true, callback.get()), 0);
    EXPECT_NE(upgrade("talvern-2.2-beta.img", false, true, callback.get()), 0);
    EXPECT_NE(rollback(), 0);

    EXPECT_EQ(upgrade("talvern-2.2-beta.img", true, true, callback.get()), 0);
    EXPECT_NE(upgrade("talvern-2.1.img", true, true, callback.get()), 0) << "while the first one runs";
    EXPECT_EQ(callback->awaitEnd(), 100);
    EXPECT_FALSE(isReleaseKeyed());

    EXPECT_EQ(rollback(), 0);
    EXPECT_TRUE(isReleaseKeyed());
    EXPECT_NE(rollback(), 0);
    EXPECT_NE(deletePrevious(), 0);
    EXPECT_EQ(reflash("talvern-2.2-beta.img"), 0);
    EXPECT_FALSE(isReleaseKeyed());
    EXPECT_NE(reflash("unknown.img"), 0);
}

TEST(ProcessManager, KeepsWhatIsSetAndRefusesALevelThatItDoesNotKnow) {
    using namespace processManagerUtils;
    PlatformLogLevel level{};
    EXPECT_EQ(setPlatformLogLevel(PlatformLogLevel::debug), 0);
    EXPECT_NE(setPlatformLogLevel(PlatformLogLevel{8}), 0);
    EXPECT_EQ(getPlatformLogLevel(level), 0);
    EXPECT_EQ(level, PlatformLogLevel::debug);

    EXPECT_NE(distributeLogging(5, -1), 0);
    EXPECT_EQ(distributeLogging(0x80000000, 3), 0);
    EXPECT_EQ(getPlatformTraceMask(), 0x80000000);
    getPlatformLogLevel(level);
    EXPECT_EQ(level, PlatformLogLevel::error);
    EXPECT_NE(signalIAmReady("", false), 0);
}

}  // namespace
