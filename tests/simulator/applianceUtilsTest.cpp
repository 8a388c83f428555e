#include <cerrno>
#include <gmock/gmock.h>

#include "platform/applianceUtils.h"
#include "platform/messaging.h"
#include "platform/nodeName.h"

using namespace talvern;
using namespace talvern::applianceUtils;

namespace {

TEST(ApplianceUtils, SetsTheClockUnlessTheTimeIsOutOfRange) {
    std::int32_t error = 0;
    EXPECT_TRUE(setDateTime(86400 + 3600, error));
    EXPECT_EQ(getDateTime().at(0), "1970-01-02");
    EXPECT_EQ(getDateTime().at(1).substr(0, 2), "01");
    for (const std::int64_t time : {std::int64_t{-1}, std::int64_t{INT64_MIN}, std::int64_t{INT64_MAX}}) {
        error = 0;
        EXPECT_FALSE(setDateTime(time, error));
        EXPECT_EQ(error, EINVAL);
    }
    EXPECT_EQ(getDateTime().at(0), "1970-01-02");
    EXPECT_FALSE(syncNTPServer(""));
    EXPECT_TRUE(syncNTPServer("ntp"));
    EXPECT_GT(getDateTime().at(0), "2020");
}

TEST(ApplianceUtils, ResetBringsEverythingBackAndReportsTwoFiles) {
    EXPECT_TRUE(setTimezone("Asia/Tokyo"));
    EXPECT_FALSE(setTimezone("Mars/Olympus"));
    EXPECT_TRUE(setLocale("de_DE", "euro"));
    EXPECT_FALSE(setLocale("German", nullptr));
    EXPECT_EQ(resetHostSSHKeys(), 0);
    EXPECT_EQ(nodeName::set("rack-7"), 0);
    EXPECT_EQ(getTimezone() + getLocale() + nodeName::get(), "Asia/Tokyode_DE@eurorack-7");
    EXPECT_TRUE(areHostSSHKeysStrong());

    std::vector<resetFileError> errors;
    EXPECT_EQ(deviceRESET(errors), 1);
    EXPECT_EQ(errors.size(), 2);
    EXPECT_EQ(getTimezone() + getLocale() + nodeName::get(), "UTCen_UStalvern");
    EXPECT_FALSE(areHostSSHKeysStrong());
}

TEST(ApplianceUtils, ThrowsWhatTheTextAsksFor) {
    EXPECT_THROW(triggerException("int:"), int);
    EXPECT_THROW(triggerException("text:"), const char*);
    EXPECT_THROW(triggerException("validation:"), config::messaging::ValidationException);
    EXPECT_THROW(triggerException("change:"), config::messaging::ConfigChangeException);
    EXPECT_THROW(triggerException("internal"), std::runtime_error);
}

}  // namespace
