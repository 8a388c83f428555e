#include "platform/applianceUtils.h"

#include <string>
#include <system_error>
#include <vector>

#include "bridge/passOn.h"
#include "platform/diagnosticUtils.h"
#include "platform/log.h"

namespace talvern::bridge {

namespace {

using New = Constructor<"()V">;
using SetFile = Method<"setFile", "(Ljava/lang/String;)V">;
using SetError = Method<"setError", "(I)V">;
using JavaFileErrors = JavaClass<New, SetFile, SetError>;

jobject toJavaFileError(JNIEnv* env, const JavaFileErrors& java, const applianceUtils::resetFileError& error) {
    jstring file = toJavaString(env, error.file);
    jobject javaError = java.call<New>();
    java.call<SetFile>(javaError, file);
    java.call<SetError>(javaError, jint{error.error});
    return javaError;
}

}  // namespace

extern "C" {

// Identity

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getSerialNumber(JNIEnv* env, jobject) {
    return passOn(env, NullIfEmpty{}, applianceUtils::getSerialNumber);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getMachineType(JNIEnv* env, jobject) {
    return passOn(env, NullIfEmpty{}, applianceUtils::getMachineType);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getMTM(JNIEnv* env, jobject) {
    return passOn(env, NullIfEmpty{}, applianceUtils::getMTM);
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1isAppliance(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, applianceUtils::isAppliance);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getCPUCount(JNIEnv* env, jobject) {
    return passOn(env, jint{-1}, applianceUtils::getCPUCount);
}

// Locale, date and time

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getLocale(JNIEnv* env, jobject) {
    return passOn(env, jstring{}, applianceUtils::getLocale);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1setLocale(JNIEnv* env, jobject, jstring locale, jstring modifier) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        const char* localeChars = utf.take(locale);
        const char* modifierChars = modifier == nullptr ? nullptr : utf.take(modifier);
        return toJavaBoolean(applianceUtils::setLocale(localeChars, modifierChars));
    });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1setDefaultLocale(JNIEnv* env, jobject, jstring locale) {
    return passOn(env, jboolean{JNI_FALSE}, applianceUtils::setDefaultLocale, locale);
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getDateTime(JNIEnv* env, jobject) {
    return passOn(env, jobjectArray{}, applianceUtils::getDateTime);
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1setDateTime(JNIEnv* env, jobject, jlong time) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        std::int32_t errorNumber = 0;
        const bool isSet = applianceUtils::setDateTime(time, errorNumber);
        if (!isSet) {
            // The text of strerror, which is not safe in threads everywhere.
            const std::string reason = std::generic_category().message(errorNumber);
            log::trace(7, "date/time set failed, err is %s", reason.c_str());
        }
        return toJavaBoolean(isSet);
    });
}

// Inventory

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getHardwareInfo(JNIEnv* env, jobject) {
    return entryPoint(env, jobject{}, [&] {
        const Constructor<
            "(Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;"
            "Ljava/lang/String;Ljava/lang/String;Z)V">
            create{env, findClass(env, "com/kvo/talvern/appliance/HWInfo")};
        applianceUtils::HWInfo info;
        applianceUtils::getHardwareInfo(info);
        jstring manufacturer = toJavaString(env, info.manufacturer);
        jstring productName = toJavaString(env, info.productName);
        jstring machineType = toJavaString(env, info.machineType);
        jstring serialNumber = toJavaString(env, info.serialNumber);
        jstring biosVersion = toJavaString(env, info.biosVersion);
        jstring biosDate = toJavaString(env, info.biosDate);
        return create(manufacturer, productName, machineType, serialNumber, biosVersion, biosDate, info.isVirtual);
    });
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1getComponentInfo(JNIEnv* env, jobject) {
    return entryPoint(env, jobjectArray{}, [&] {
        jclass javaClass = findClass(env, "com/kvo/talvern/appliance/ComponentFirmware");
        const Constructor<"(ILjava/lang/String;)V"> create{env, javaClass};
        const Constructor<"()V"> createBlank{env, javaClass};
        const std::vector<applianceUtils::ComponentFirmware> components = readList(applianceUtils::getComponentInfo);
        return toJavaArray(env, javaClass, createBlank(), components, [&](const auto& component) {
            return create(jint{component.component}, toJavaString(env, component.firmware));
        });
    });
}

// Network diagnostics: the characters go back before the result is made.

JNIEXPORT jstring JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1dnsResolve(JNIEnv* env, jobject, jstring host) {
    return entryPoint(env, "", [&] {
        UtfStrings utf{env};
        std::string result;
        const bool isResolved = diagnosticUtils::dnsResolve(utf.take(host), result);
        utf.release();
        return toJavaString(env, isResolved ? result : "");
    });
}

JNIEXPORT jstring JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1tcpConnect(JNIEnv* env, jobject, jstring host, jint port) {
    return entryPoint(env, "JNI error", [&] {
        UtfStrings utf{env};
        std::string error;
        const bool isConnected = diagnosticUtils::tcpConnect(utf.take(host), port, error);
        log::trace(7, "Return from tcpConnect is %d", isConnected ? 1 : 0);
        log::trace(7, "Err is %s", error.c_str());
        utf.release();
        return toJavaString(env, isConnected ? "" : error);
    });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1pingHost(JNIEnv* env, jobject, jstring host) {
    return entryPoint(env, jboolean{JNI_FALSE}, [&] {
        UtfStrings utf{env};
        std::string output;
        return toJavaBoolean(diagnosticUtils::pingHost(utf.take(host), output));
    });
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1networkReady(JNIEnv* env, jobject) {
    return entryPoint(env, jint{4}, [] {
        const std::int32_t state = diagnosticUtils::networkReady();
        return state == 1 || state == 2 ? state : 3;
    });
}

JNIEXPORT jboolean JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1syncNTPServer(JNIEnv* env, jobject, jstring server) {
    return passOn(env, jboolean{JNI_FALSE}, applianceUtils::syncNTPServer, server);
}

// Reset and host keys

JNIEXPORT jint JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1deviceRESET(JNIEnv* env, jobject, jobjectArray javaErrors) {
    return entryPoint(env, jint{3}, [&] {
        // All that may fail comes first: a reset can't be taken back.
        const JavaFileErrors java{env, findClass(env, "com/kvo/talvern/appliance/FileError")};
        const auto slots = static_cast<std::size_t>(lengthOf(env, javaErrors));
        std::vector<applianceUtils::resetFileError> errors;
        const std::int32_t status = applianceUtils::deviceRESET(errors);
        if (errors.size() > slots) errors.resize(slots);
        jsize index = 0;
        for (const auto& error : errors)
            env->SetObjectArrayElement(javaErrors, index++, toJavaFileError(env, java, error));
        return status;
    });
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1areHostSSHKeysStrong(JNIEnv* env, jobject) {
    return passOn(env, jboolean{JNI_FALSE}, applianceUtils::areHostSSHKeysStrong);
}

JNIEXPORT jint JNICALL Java_com_kvo_talvern_appliance_ApplianceUtils__1resetHostSSHKeys(JNIEnv* env, jobject) {
    return passOn(env, jint{2}, applianceUtils::resetHostSSHKeys);
}

JNIEXPORT void JNICALL
Java_com_kvo_talvern_appliance_ApplianceUtils__1triggerException(JNIEnv* env, jobject, jstring text) {
    passOn(env, applianceUtils::triggerException, text);
}
}

}  // namespace talvern::bridge
