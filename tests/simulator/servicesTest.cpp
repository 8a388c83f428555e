#include <gmock/gmock.h>

#include "platform/servicesUtils.h"
#include "platform/snmpUtils.h"

using namespace talvern;

namespace {

TEST(Snmp, IsStartedAndStoppedOnce) {
    EXPECT_FALSE(snmpUtils::stopSNMP());
    EXPECT_TRUE(snmpUtils::startSNMP());
    EXPECT_FALSE(snmpUtils::startSNMP());
    EXPECT_TRUE(snmpUtils::stopSNMP());
    EXPECT_TRUE(snmpUtils::restartSNMP());
    EXPECT_TRUE(snmpUtils::stopSNMP());
}

TEST(ServiceTests, AreKnownByNameWhoseCharactersAreNotKept) {
    char name[] = "storage";
    EXPECT_EQ(servicesUtils::stopTest(name), 2);
    EXPECT_EQ(servicesUtils::startTest(name, 0), 6);
    EXPECT_EQ(servicesUtils::startTest(name, 60), 0);
    name[0] = 'X';
    EXPECT_EQ(servicesUtils::startTest(name, 60), 2);
    EXPECT_EQ(servicesUtils::startTest("storage", 60), 3);
    EXPECT_EQ(servicesUtils::stopTest("storage"), 0);
    EXPECT_EQ(servicesUtils::performTest("storage", 1), 0);
    EXPECT_EQ(servicesUtils::performTest("storage", -1), 6);
    EXPECT_EQ(servicesUtils::performTest(name, 1), 2);
}

}  // namespace
