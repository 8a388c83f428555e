#include <gmock/gmock.h>

#include "platform/userManagerUtils.h"

using namespace talvern::userManagerUtils;
using testing::ElementsAre;

namespace {

bool logsIn(const char* name, const char* secret) { return login(loginType::password, name, secret); }

TEST(Users, LogInWithTheirPresentPasswordOnly) {
    EXPECT_EQ(addUser("operator", "secret"), 0);
    EXPECT_TRUE(logsIn("operator", "secret"));
    for (const char* wrong : {"", "Secret", "secret ", "*", "*0"}) EXPECT_FALSE(logsIn("operator", wrong));
    for (const char* guess : {"", "admin", "*"}) EXPECT_FALSE(logsIn("admin", guess)) << "locked at first";

    EXPECT_TRUE(changePasswd(loginType::password, "operator", "new"));
    EXPECT_FALSE(logsIn("operator", "secret"));
    EXPECT_FALSE(changePasswd(loginType::password, "operator", ""));
    EXPECT_FALSE(changePasswd(loginType::password, "operator", std::string(600, 'x')));
    EXPECT_TRUE(logsIn("operator", "new"));

    EXPECT_EQ(deleteUser("operator"), 0);
    EXPECT_FALSE(logsIn("operator", ""));
}

TEST(Users, AreAddedAndHoldTheirKeysOnce) {
    const char* key = "ssh-ed25519 AAAAC3Nz= me@home";
    EXPECT_EQ(addUser("operator", "secret"), 0);
    EXPECT_EQ(addUser("operator", "other"), 3);
    for (const char* name : {"", "Operator", "1st", "two words", "a/b"}) {
        EXPECT_EQ(addUser(name, "x"), 6) << name;
    }
    EXPECT_EQ(deleteUser("admin"), 4);
    EXPECT_THAT(listUsers(), ElementsAre("admin", "operator"));

    EXPECT_EQ(sshKeyAdd("operator", key), 0);
    EXPECT_EQ(sshKeyAdd("operator", key), 3);
    for (const char* text : {"", "secret", "ssh-rsa", "ssh-rsa !"}) EXPECT_EQ(sshKeyAdd("operator", text), 6);
    EXPECT_EQ(sshKeyDel("operator"), 0);
    EXPECT_EQ(sshKeyDel("operator"), 2);
    EXPECT_EQ(deleteUser("operator"), 0);
}

}  // namespace
