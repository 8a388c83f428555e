#include "mocks/userManagerUtils.h"
#include "support/bridgeTest.h"

using testing::IsEmpty;
using testing::Return;

namespace {

constexpr auto javaClass = "user/UserUtils";
constexpr auto password = talvern::userManagerUtils::loginType::password;

class UserUtilsTest : public BridgeTest {
  protected:
    UserManagerMock& users = mock<UserManagerMock>();
    jstring first = javaString("first");
    jstring second = javaString("second");
};

TEST_F(UserUtilsTest, PassesTextsInOrderAndStatusesUnchanged) {
    for (const int status : {0, 5, -1, 99}) {
        EXPECT_CALL(users, addUser("first", "second")).WillOnce(Return(status));
        EXPECT_CALL(users, sshKeyAdd("second", "first")).WillOnce(Return(status));
        EXPECT_CALL(users, deleteUser("first")).WillOnce(Return(status));
        EXPECT_CALL(users, sshKeyDel("second")).WillOnce(Return(status));
        EXPECT_EQ(call(javaClass, "_addUser", first, second).result.i, status);
        EXPECT_EQ(call(javaClass, "_sshKeyAdd", second, first).result.i, status);
        EXPECT_EQ(call(javaClass, "_deleteUser", first).result.i, status);
        EXPECT_EQ(call(javaClass, "_sshKeyDel", second).result.i, status);
    }
}

TEST_F(UserUtilsTest, SubmitsPasswordsForTheFirstKindOfLogin) {
    EXPECT_EQ(static_cast<int>(password), 0);
    for (const bool isAccepted : {true, false}) {
        const char* expected = isAccepted ? "true" : "false";
        EXPECT_CALL(users, login(password, "first", "second")).WillOnce(Return(isAccepted));
        EXPECT_CALL(users, changePasswd(password, "second", "first")).WillOnce(Return(isAccepted));
        EXPECT_EQ(call(javaClass, "_authenticateUser", first, second).resultText, expected);
        EXPECT_EQ(call(javaClass, "_changePassword", second, first).resultText, expected);
    }
}

TEST_F(UserUtilsTest, ListsTheUsersInOrder) {
    for (const auto& [names, seen] :
         {std::pair{std::vector<std::string>{}, "[]"}, {{"zoe", "", "adam"}, "[zoe, , adam]"}}) {
        table.restart();
        EXPECT_CALL(users, listUsers).WillOnce([&, list = names] {
            EXPECT_THAT(table.calls(), IsEmpty()) << "the platform is asked first";
            return list;
        });
        EXPECT_EQ(call(javaClass, "_listUsers").resultText, seen);
    }
}

}  // namespace
