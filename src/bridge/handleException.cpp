#include "bridge/handleException.h"

#include "bridge/javaMembers.h"
#include "bridge/marshalling.h"
#include "platform/log.h"

namespace talvern::bridge {

namespace {

void discardPending(JNIEnv* env) {
    env->ExceptionDescribe();
    env->ExceptionClear();
}

/// Throws the Java exception that `create` makes of its class.
template <typename Create>
bool throwCreated(JNIEnv* env, const char* className, Create create) {
    jclass exceptionClass = env->FindClass(className);
    if (exceptionClass == nullptr) return false;
    try {
        env->Throw(static_cast<jthrowable>(notNull(create(exceptionClass))));
        return true;
    } catch (const PendingJavaException&) {
        return false;
    }
}

}  // namespace

bool throwTalvernException(JNIEnv* env, const char* message) {
    jclass exceptionClass = env->FindClass("com/kvo/talvern/TalvernException");
    if (exceptionClass == nullptr) return false;
    env->ThrowNew(exceptionClass, message);
    return true;
}

}  // namespace talvern::bridge

using namespace talvern::bridge;

bool handleException(JNIEnv* env) {
    talvern::log::trace(3, "Unknown exception caught in libtalvern JNI");
    discardPending(env);
    return throwTalvernException(env, "Unknown native exception");
}

bool handleException(JNIEnv* env, const std::exception& exception) {
    talvern::log::trace(3, "Exception caught in libtalvern JNI: %s", exception.what());
    discardPending(env);
    return throwTalvernException(env, exception.what());
}

bool handleException(JNIEnv* env, const talvern::config::messaging::ValidationException& exception) {
    talvern::log::trace(3, "ValidationException caught in libtalvern JNI: %s", exception.what());
    discardPending(env);
    return throwCreated(env, "com/kvo/talvern/config/ValidationException", [&](jclass exceptionClass) {
        const Constructor<"(Ljava/lang/String;Ljava/lang/String;)V"> create{env, exceptionClass};
        jstring first = notNull(toJavaString(env, exception.first));
        jstring second = notNull(toJavaString(env, exception.second));
        jobject javaException = create(first, second);
        talvern::log::trace(3, "Throwing Java ValidationException in libtalvern JNI\n");
        return javaException;
    });
}

bool handleException(JNIEnv* env, const talvern::config::messaging::ConfigChangeException& exception) {
    talvern::log::trace(3, "ConfigChangeException caught in libtalvern JNI: %s", exception.what());
    discardPending(env);
    return throwCreated(env, "com/kvo/talvern/config/ConfigChangeException", [&](jclass exceptionClass) {
        const Constructor<"(ILjava/lang/String;[Ljava/lang/String;)V"> create{env, exceptionClass};
        // A copy of its own: creating the Java strings may run Java code, and that may reach the platform
        // again.
        const std::vector<std::string> texts = exception.texts;
        jstring text = notNull(toJavaString(env, exception.text));
        return create(jint{exception.code}, text, toJavaStringArray(env, texts));
    });
}
