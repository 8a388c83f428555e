#include <gmock/gmock.h>

#include "platform/nodeName.h"

using namespace talvern;

namespace {

TEST(NodeName, KeepsAValidNameAndRefusesOthers) {
    nodeName::init();
    EXPECT_EQ(nodeName::set("rack-7.example"), 0);
    EXPECT_EQ(nodeName::get(), "rack-7.example");
    for (const char* name : {"", "-rack", "rack-", "two words",
                             "r\xC3\xA4"
                             "ck"}) {
        EXPECT_NE(nodeName::set(name), 0) << name;
    }
    EXPECT_NE(nodeName::set(std::string(254, 'a')), 0);
    EXPECT_EQ(nodeName::get(), "rack-7.example");
    EXPECT_EQ(nodeName::init(), 0);
    EXPECT_EQ(nodeName::get(), "talvern");
}

}  // namespace
