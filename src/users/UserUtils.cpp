#include <jni.h>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "bridge/utfStrings.h"
#include "platform/userManagerUtils.h"

namespace userManagerUtils = talvern::userManagerUtils;

namespace {

/// What changes the accounts returns after an exception.
constexpr jint exceptionStatus = 99;

/// Adds `item`, a password or a key, under the user's name.
jint add(JNIEnv* env, std::int32_t (*operation)(std::string, std::string), jstring name, jstring item) {
    return entryPoint(env, exceptionStatus, [&] {
        UtfStrings utf{env};
        const char* nativeName = utf.take(name);
        const char* nativeItem = utf.take(item);
        return operation(nativeName, nativeItem);
    });
}

/// Removes what there is under the user's name.
jint remove(JNIEnv* env, std::int32_t (*operation)(std::string), jstring name) {
    return entryPoint(env, exceptionStatus, [&] {
        UtfStrings utf{env};
        return operation(utf.take(name));
    });
}

/// Hands a user's password over.
jboolean submitPassword(JNIEnv* env, bool (*operation)(userManagerUtils::loginType, std::string, std::string),
                        jstring name, jstring password) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        const char* nativeName = utf.take(name);
        const char* nativePassword = utf.take(password);
        return toJavaBoolean(operation(userManagerUtils::loginType::password, nativeName, nativePassword));
    });
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1addUser(JNIEnv* env, jobject, jstring name,
                                                                     jstring password) {
    return add(env, userManagerUtils::addUser, name, password);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1deleteUser(JNIEnv* env, jobject, jstring name) {
    return remove(env, userManagerUtils::deleteUser, name);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1sshKeyAdd(JNIEnv* env, jobject, jstring name,
                                                                       jstring key) {
    return add(env, userManagerUtils::sshKeyAdd, name, key);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_user_UserUtils__1sshKeyDel(JNIEnv* env, jobject, jstring name) {
    return remove(env, userManagerUtils::sshKeyDel, name);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_user_UserUtils__1changePassword(JNIEnv* env, jobject,
                                                                                jstring name,
                                                                                jstring newPassword) {
    return submitPassword(env, userManagerUtils::changePasswd, name, newPassword);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_user_UserUtils__1authenticateUser(JNIEnv* env, jobject,
                                                                                  jstring name,
                                                                                  jstring password) {
    return submitPassword(env, userManagerUtils::login, name, password);
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_user_UserUtils__1listUsers(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{},
                      [&] { return toJavaStringArray(env, userManagerUtils::listUsers()); });
}
}
