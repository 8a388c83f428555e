#include <gmock/gmock.h>
#include <thread>

#include "wholePlatform.h"

using namespace talvern;
using namespace talvern::applianceUtils;

namespace {

TEST(Appliance, SetsTheClockUnlessTheTimeIsOutOfRange) {
    std::int32_t error = 0;
    EXPECT_TRUE(setDateTime(86400 + 3600, error));
    for (const std::int64_t time : {std::int64_t{-1}, std::int64_t{INT64_MAX}}) {
        EXPECT_FALSE(setDateTime(time, error));
        EXPECT_EQ(error, EINVAL);
    }
    EXPECT_EQ(getDateTime().at(0) + getDateTime().at(1).substr(0, 2), "1970-01-0201");
    EXPECT_TRUE(syncNTPServer("ntp"));
    EXPECT_GT(getDateTime().at(0), "2020");
}

TEST(Appliance, ResetRestoresTheSettingsAndReportsTwoFiles) {
    EXPECT_TRUE(setTimezone("Asia/Tokyo"));
    EXPECT_TRUE(setLocale("de_DE", "euro"));
    EXPECT_EQ(resetHostSSHKeys(), 0);
    EXPECT_EQ(nodeName::set("rack-7"), 0);
    EXPECT_EQ(statusUtils::clearIntrusionStatus(), 0);
    EXPECT_EQ(getTimezone() + getLocale() + nodeName::get(), "Asia/Tokyode_DE@eurorack-7");
    EXPECT_TRUE(areHostSSHKeysStrong());

    std::vector<resetFileError> errors;
    EXPECT_EQ(deviceRESET(errors), 1);
    EXPECT_EQ(errors.size(), 2);
    EXPECT_EQ(getTimezone() + getLocale() + nodeName::get(), "UTCen_UStalvern");
    EXPECT_FALSE(areHostSSHKeysStrong());
    EXPECT_EQ(statusUtils::getIntrusionStatus(), 0) << "no reset closes or opens the case";
}

TEST(Appliance, UpgradesOnceAtATimeAndGoesBack) {
    using namespace firmwareManagerUtils;
    constexpr int busy = 5;
    EXPECT_NE(upgrade("talvern-2.2-beta.img", false, true, nullptr), 0);
    EXPECT_EQ(upgrade("talvern-2.2-beta.img", true, true, nullptr), 0);
    EXPECT_EQ(upgrade("talvern-2.1.img", true, true, nullptr), busy);
    int status = busy;
    for (; status == busy; status = rollback()) std::this_thread::sleep_for(std::chrono::milliseconds{10});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(isReleaseKeyed());
    EXPECT_NE(rollback(), 0);
    EXPECT_EQ(reflash("talvern-2.2-beta.img"), 0);
    EXPECT_FALSE(isReleaseKeyed());
}

TEST(Appliance, FailsInTheWayThatATextNames) {
    EXPECT_THROW(triggerException("int:"), int);
    EXPECT_THROW(triggerException("text:"), const char*);
    EXPECT_THROW(triggerException("validation:"), config::messaging::ValidationException);
    EXPECT_THROW(triggerException("change:"), config::messaging::ConfigChangeException);
    EXPECT_THROW(triggerException("internal"), std::runtime_error);
}

}  // namespace
