#include "platform/applianceUtils.h"

#include <jni.h>

#include <string>
#include <system_error>
#include <vector>

#include "bridge/entryPoint.h"
#include "bridge/marshalling.h"
#include "bridge/utfStrings.h"
#include "platform/diagnosticUtils.h"
#include "platform/log.h"

namespace appliance = talvern::applianceUtils;
namespace diagnostics = talvern::diagnosticUtils;

namespace {

/// What the appliance says about itself; null if it says nothing.
jstring identityText(JNIEnv* env, std::string (*operation)()) {
    return entryPoint(env, jstring{}, [&] {
        const std::string text = operation();
        return text.empty() ? nullptr : toJavaString(env, text);
    });
}

/// The platform's answer, as it stands.
jboolean answer(JNIEnv* env, bool (*operation)()) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] { return toJavaBoolean(operation()); });
}

/// The platform's answer to one text, as it stands.
jboolean answer(JNIEnv* env, bool (*operation)(const char*), jstring text) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        return toJavaBoolean(operation(utf.take(text)));
    });
}

/// Creates any number of FileError objects with one lookup.
class JavaFileErrors {
  public:
    explicit JavaFileErrors(JNIEnv* env)
        : env_{env},
          class_{findClass(env, "com/kvo/talvern/appliance/FileError")},
          create_{env, class_},
          setFile_{env, class_},
          setError_{env, class_} {}

    [[nodiscard]] jobject of(const appliance::resetFileError& error) const {
        jstring file = toJavaString(env_, error.file);
        jobject javaError = create_();
        setFile_(javaError, file);
        setError_(javaError, jint{error.error});
        return javaError;
    }

  private:
    JNIEnv* env_;
    jclass class_;
    Constructor<"()V"> create_;
    Method<"setFile", "(Ljava/lang/String;)V"> setFile_;
    Method<"setError", "(I)V"> setError_;
};

}  // namespace

extern "C" {

// Identity

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getSerialNumber(JNIEnv* env,
                                                                                          jobject) {
    return identityText(env, appliance::getSerialNumber);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getMachineType(JNIEnv* env,
                                                                                         jobject) {
    return identityText(env, appliance::getMachineType);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getMTM(JNIEnv* env, jobject) {
    return identityText(env, appliance::getMTM);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1isAppliance(JNIEnv* env, jobject) {
    return answer(env, appliance::isAppliance);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getCPUCount(JNIEnv* env, jobject) {
    return entryPoint(env, jint{-1}, [] { return appliance::getCPUCount(); });
}

// Locale, date and time

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getLocale(JNIEnv* env, jobject) {
    return entryPoint(env, jstring{}, [&] { return toJavaString(env, appliance::getLocale()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1setLocale(JNIEnv* env, jobject,
                                                                                     jstring locale,
                                                                                     jstring modifier) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        const char* localeChars = utf.take(locale);
        const char* modifierChars = modifier == nullptr ? nullptr : utf.take(modifier);
        return toJavaBoolean(appliance::setLocale(localeChars, modifierChars));
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1setDefaultLocale(JNIEnv* env,
                                                                                            jobject,
                                                                                            jstring locale) {
    return answer(env, appliance::setDefaultLocale, locale);
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getDateTime(JNIEnv* env,
                                                                                           jobject) {
    return entryPoint(env, jobjectArray{}, [&] { return toJavaStringArray(env, appliance::getDateTime()); });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1setDateTime(JNIEnv* env, jobject,
                                                                                       jlong time) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        std::int32_t errorNumber = 0;
        const bool isSet = appliance::setDateTime(time, errorNumber);
        if (!isSet) {
            // The text of strerror, which is not safe in threads everywhere.
            const std::string reason = std::generic_category().message(errorNumber);
            talvern::log::trace(7, "date/time set failed, err is %s", reason.c_str());
        }
        return toJavaBoolean(isSet);
    });
}

// Inventory

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getHardwareInfo(JNIEnv* env,
                                                                                          jobject) {
    return entryPoint(env, jobject{}, [&] {
        const Constructor<
            "(Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;"
            "Ljava/lang/String;Ljava/lang/String;Z)V">
            create{env, findClass(env, "com/kvo/talvern/appliance/HWInfo")};
        appliance::HWInfo info;
        appliance::getHardwareInfo(info);
        jstring manufacturer = toJavaString(env, info.manufacturer);
        jstring productName = toJavaString(env, info.productName);
        jstring machineType = toJavaString(env, info.machineType);
        jstring serialNumber = toJavaString(env, info.serialNumber);
        jstring biosVersion = toJavaString(env, info.biosVersion);
        jstring biosDate = toJavaString(env, info.biosDate);
        return create(manufacturer, productName, machineType, serialNumber, biosVersion, biosDate,
                      info.isVirtual);
    });
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getComponentInfo(JNIEnv* env,
                                                                                                jobject) {
    return entryPoint(env, jobjectArray{}, [&] {
        jclass javaClass = findClass(env, "com/kvo/talvern/appliance/ComponentFirmware");
        const Constructor<"(ILjava/lang/String;)V"> create{env, javaClass};
        const Constructor<"()V"> createBlank{env, javaClass};
        std::vector<appliance::ComponentFirmware> components;
        if (!appliance::getComponentInfo(components)) components.clear();
        return toJavaArray(env, javaClass, createBlank(), components, [&](const auto& component) {
            return create(jint{component.component}, toJavaString(env, component.firmware));
        });
    });
}

// Network diagnostics: the characters go back before the result is made.

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1dnsResolve(JNIEnv* env, jobject,
                                                                                     jstring host) {
    return entryPoint(env, "", [&] {
        UtfStrings utf{env};
        std::string result;
        const bool isResolved = diagnostics::dnsResolve(utf.take(host), result);
        utf.release();
        return toJavaString(env, isResolved ? result : "");
    });
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1tcpConnect(JNIEnv* env, jobject,
                                                                                     jstring host,
                                                                                     jint port) {
    return entryPoint(env, "JNI error", [&] {
        UtfStrings utf{env};
        std::string error;
        const bool isConnected = diagnostics::tcpConnect(utf.take(host), port, error);
        talvern::log::trace(7, "Return from tcpConnect is %d", isConnected ? 1 : 0);
        talvern::log::trace(7, "Err is %s", error.c_str());
        utf.release();
        return toJavaString(env, isConnected ? "" : error);
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1pingHost(JNIEnv* env, jobject,
                                                                                    jstring host) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        std::string output;
        return toJavaBoolean(diagnostics::pingHost(utf.take(host), output));
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1networkReady(JNIEnv* env, jobject) {
    return entryPoint(env, jint{4}, [] {
        const std::int32_t state = diagnostics::networkReady();
        return state == 1 || state == 2 ? state : 3;
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1syncNTPServer(JNIEnv* env, jobject,
                                                                                         jstring server) {
    return answer(env, appliance::syncNTPServer, server);
}

// Reset and host keys

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1deviceRESET(JNIEnv* env, jobject,
                                                                                   jobjectArray javaErrors) {
    return entryPoint(env, jint{3}, [&] {
        // All that may fail comes first: a reset can't be taken back.
        const JavaFileErrors javaFileErrors{env};
        const auto slots = static_cast<std::size_t>(lengthOf(env, javaErrors));
        std::vector<appliance::resetFileError> errors;
        const std::int32_t status = appliance::deviceRESET(errors);
        if (errors.size() > slots) errors.resize(slots);
        jsize index = 0;
        for (const auto& error : errors)
            env->SetObjectArrayElement(javaErrors, index++, javaFileErrors.of(error));
        return status;
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1areHostSSHKeysStrong(JNIEnv* env,
                                                                                                jobject) {
    return answer(env, appliance::areHostSSHKeysStrong);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1resetHostSSHKeys(JNIEnv* env,
                                                                                        jobject) {
    return entryPoint(env, jint{2}, [] { return appliance::resetHostSSHKeys(); });
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1triggerException(JNIEnv* env, jobject,
                                                                                        jstring text) {
    entryPoint(env, [&] {
        UtfStrings utf{env};
        appliance::triggerException(utf.take(text));
    });
}
}
