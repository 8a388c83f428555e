#include "bridge/handleException.h"

#include "bridge/javaMembers.h"
#include "bridge/marshalling.h"
#include "platform/log.h"

namespace talvern::bridge {

namespace {

constexpr auto unknownText = "Unknown native exception";

/// Writes a trace line. What the log throws is dropped: Java must learn of the exception at hand.
template <typename Write>
void trace(Write write) noexcept {
    try {
        write();
    } catch (...) {
    }
}

/// What the exception says; a text of our own if it says nothing.
const char* textOf(const std::exception& exception) {
    const char* text = exception.what();
    return text == nullptr ? unknownText : text;
}

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
    trace([] { talvern::log::trace(3, "Unknown exception caught in libtalvern JNI"); });
    discardPending(env);
    return throwTalvernException(env, unknownText);
}

bool handleException(JNIEnv* env, const std::exception& exception) {
    const char* text = textOf(exception);
    trace([&] { talvern::log::trace(3, "Exception caught in libtalvern JNI: %s", text); });
    discardPending(env);
    return throwTalvernException(env, text);
}

bool handleException(JNIEnv* env, const talvern::config::messaging::ValidationException& exception) {
    trace([&] { talvern::log::trace(3, "ValidationException caught in libtalvern JNI: %s", textOf(exception)); });
    discardPending(env);
    return throwCreated(env, "com/kvo/talvern/config/ValidationException", [&](jclass exceptionClass) {
        const Constructor<"(Ljava/lang/String;Ljava/lang/String;)V"> create{env, exceptionClass};
        jstring first = toJavaString(env, exception.first);
        jstring second = toJavaString(env, exception.second);
        jobject javaException = create(first, second);
        trace([] { talvern::log::trace(3, "Throwing Java ValidationException in libtalvern JNI\n"); });
        return javaException;
    });
}

bool handleException(JNIEnv* env, const talvern::config::messaging::ConfigChangeException& exception) {
    trace([&] { talvern::log::trace(3, "ConfigChangeException caught in libtalvern JNI: %s", textOf(exception)); });
    discardPending(env);
    return throwCreated(env, "com/kvo/talvern/config/ConfigChangeException", [&](jclass exceptionClass) {
        const Constructor<"(ILjava/lang/String;[Ljava/lang/String;)V"> create{env, exceptionClass};
        // A copy of its own: creating the Java strings may run Java code, and that may reach the platform
        // again.
        const std::vector<std::string> texts = exception.texts;
        jstring text = toJavaString(env, exception.text);
        return create(jint{exception.code}, text, toJavaStringArray(env, texts));
    });
}
