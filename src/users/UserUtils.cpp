#include "bridge/passOn.h"
#include "platform/userManagerUtils.h"

namespace talvern::bridge {

namespace {

/// What changes the accounts returns after an exception.
constexpr jint exceptionStatus = 99;

constexpr auto byPassword = userManagerUtils::loginType::password;

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_user_UserUtils__1addUser(JNIEnv* env, jobject, jstring name, jstring password) {
    return passOn(env, exceptionStatus, userManagerUtils::addUser, name, password);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1deleteUser(JNIEnv* env, jobject, jstring name) {
    return passOn(env, exceptionStatus, userManagerUtils::deleteUser, name);
}

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_user_UserUtils__1sshKeyAdd(JNIEnv* env, jobject, jstring name, jstring key) {
    return passOn(env, exceptionStatus, userManagerUtils::sshKeyAdd, name, key);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1sshKeyDel(JNIEnv* env, jobject, jstring name) {
    return passOn(env, exceptionStatus, userManagerUtils::sshKeyDel, name);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_user_UserUtils__1changePassword(JNIEnv* env, jobject, jstring name, jstring newPassword) {
    return passOn(env, jboolean{JNI_FALSE}, userManagerUtils::changePasswd, byPassword, name, newPassword);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_user_UserUtils__1authenticateUser(JNIEnv* env, jobject, jstring name, jstring password) {
    return passOn(env, jboolean{JNI_FALSE}, userManagerUtils::login, byPassword, name, password);
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_user_UserUtils__1listUsers(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, userManagerUtils::listUsers);
}
}

}  // namespace talvern::bridge
