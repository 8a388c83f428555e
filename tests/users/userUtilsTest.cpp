#include "mocks/users.h"
#include "support/bridgeTest.h"

using testing::Return;

namespace {

class UserUtilsTest : public BridgeTest {
  protected:
    UserManagerMock& users = mock<UserManagerMock>();
};

TEST_F(UserUtilsTest, PassesTextsInOrderAndStatusesUnchanged) {
    for (const int status : {0, 5, -1}) {
        EXPECT_CALL(users, addUser("name", "password")).WillOnce(Return(status));
        EXPECT_CALL(users, sshKeyAdd("name", "key")).WillOnce(Return(status));
        EXPECT_CALL(users, deleteUser("leaver")).WillOnce(Return(status));
        EXPECT_CALL(users, sshKeyDel("careless")).WillOnce(Return(status));
        EXPECT_EQ(call("_addUser", "name", "password").result.i, status);
        EXPECT_EQ(call("_sshKeyAdd", "name", "key").result.i, status);
        EXPECT_EQ(call("_deleteUser", "leaver").result.i, status);
        EXPECT_EQ(call("_sshKeyDel", "careless").result.i, status);
    }
}

TEST_F(UserUtilsTest, SubmitsPasswordsForTheFirstKindOfLogin) {
    constexpr auto password = talvern::userManagerUtils::loginType::password;
    EXPECT_EQ(static_cast<int>(password), 0);
    for (const bool isAccepted : {true, false}) {
        EXPECT_CALL(users, login(password, "name", "old")).WillOnce(Return(isAccepted));
        EXPECT_CALL(users, changePasswd(password, "name", "new")).WillOnce(Return(isAccepted));
        EXPECT_EQ(call("_authenticateUser", "name", "old").result.z, isAccepted);
        EXPECT_EQ(call("_changePassword", "name", "new").result.z, isAccepted);
    }
}

TEST_F(UserUtilsTest, AsksThePlatformFirstForTheUsers) {
    EXPECT_CALL(users, listUsers).WillOnce([&] {
        EXPECT_THAT(table.calls(), testing::IsEmpty());
        return Texts{"zoe", "", "adam"};
    });
    EXPECT_EQ(ask("_listUsers"), "[zoe, , adam]");
}

}  // namespace
