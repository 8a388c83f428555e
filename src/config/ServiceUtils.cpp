#include <memory>
#include <string>
#include <vector>

#include "bridge/passOn.h"
#include "config/states.h"
#include "config/valueConversion.h"
#include "platform/configService.h"
#include "platform/messaging.h"

namespace talvern::bridge {

using config::Service;
using config::Value;

namespace {

/// Runs `body` so that an exception of this kind reaches Java as such.
template <typename Exception, typename Body>
jobject translating(JNIEnv* env, Body body) {
    try {
        return body();
    } catch (const Exception& exception) {
        translate(env, exception);
    }
    return nullptr;
}

/// The frame of a native method that lets the configuration service check a value.
template <typename Body>
jobject validatingEntryPoint(JNIEnv* env, Body body) noexcept {
    return entryPoint(env, jobject{}, [&] { return translating<config::messaging::ValidationException>(env, body); });
}

/// The frame of a native method that changes the configuration.
template <typename Body>
jobject changingEntryPoint(JNIEnv* env, Body body) noexcept {
    return validatingEntryPoint(env, [&] { return translating<config::messaging::ConfigChangeException>(env, body); });
}

constexpr Service::ReturnCode success{0};
constexpr Service::ReturnCode nullValue{9};

/// A copy of an identifying string, empty for null. The characters stay taken.
std::string identifier(UtfStrings& utf, jstring string) { return string == nullptr ? "" : utf.take(string); }

/// The strings that identify an object. Their characters are taken in this order.
struct ObjectId {
    ObjectId(JNIEnv* env, jstring javaType, jstring javaParent, jstring javaName)
        : utf{env},
          type{identifier(utf, javaType)},
          parent{identifier(utf, javaParent)},
          name{identifier(utf, javaName)} {}

    UtfStrings utf;
    std::string type, parent, name;
};

/// Stores the outcome on the receiver, gives the characters back, and makes the outcome the result.
jobject report(JNIEnv* env, jobject receiver, UtfStrings& utf, Service::ReturnCode code) {
    const JavaReturnCodes codes{env, config::RETURNCODE_STR};
    storeReturnCode(env, receiver, codes.of(code));
    utf.release();
    return codes.of(code);
}

/// Asks the service for an operation with a value. A null value is answered without asking it.
template <typename Operation>
jobject requestWithValue(JNIEnv* env, jobject receiver, UtfStrings& utf, jobject value, Operation operation) {
    if (value == nullptr) return report(env, receiver, utf, nullValue);
    const std::unique_ptr<const Value> tree{convertJValue2Value(env, value)};
    return report(env, receiver, utf, operation(tree.get()));
}

/// Asks the service for a change of an object as a whole.
template <typename Operation>
jobject changeWhole(JNIEnv* env, jobject receiver, Operation operation, jstring type, jstring parent, jstring name) {
    return changingEntryPoint(env, [&] {
        ObjectId id{env, type, parent, name};
        return report(env, receiver, id.utf, operation(id.type, id.parent, id.name));
    });
}

/// Reads a state of an object; null unless the service gives one.
template <typename State, typename Read>
jobject readState(
    JNIEnv* env, jobject receiver, Read read, jobject (*convert)(JNIEnv*, State), jstring type, jstring parent,
    jstring name) {
    return entryPoint(env, jobject{}, [&] {
        ObjectId id{env, type, parent, name};
        State state{};
        const Service::ReturnCode code = read(id.type, id.parent, id.name, state);
        setReturnCode(env, receiver, code);
        id.utf.release();
        return code == success ? convert(env, state) : nullptr;
    });
}

}  // namespace

extern "C" {

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1createObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name, jobject value, jint state,
    jboolean replace) {
    return changingEntryPoint(env, [&] {
        ObjectId id{env, type, parent, name};
        return requestWithValue(env, receiver, id.utf, value, [&](const Value* tree) {
            return Service::createObject(
                id.type, id.parent, id.name, tree, Service::AdminState{state}, replace == JNI_TRUE);
        });
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1updateObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name, jobject value, jboolean merge) {
    return changingEntryPoint(env, [&] {
        ObjectId id{env, type, parent, name};
        return requestWithValue(env, receiver, id.utf, value, [&](const Value* tree) {
            return Service::updateObject(id.type, id.parent, id.name, tree, merge == JNI_TRUE);
        });
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1deleteObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name) {
    return changeWhole(env, receiver, Service::deleteObject, type, parent, name);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1resetObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name) {
    return changeWhole(env, receiver, Service::resetObject, type, parent, name);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1queryObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name) {
    return entryPoint(env, jobject{}, [&] {
        ObjectId id{env, type, parent, name};
        Value* value = nullptr;
        setReturnCode(env, receiver, Service::queryObject(id.type, id.parent, id.name, &value));
        return convertValue2JValue(env, value);
    });
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_config_ServiceUtils__1validateObject(JNIEnv* env, jobject receiver, jstring type, jobject value) {
    return validatingEntryPoint(env, [&] {
        UtfStrings utf{env};
        const std::string nativeType = identifier(utf, type);
        return requestWithValue(
            env, receiver, utf, value, [&](const Value* tree) { return Service::validateObject(nativeType, tree); });
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1getNamesofObject(
    JNIEnv* env, jobject receiver, jstring type, jstring parent) {
    return entryPoint(env, jobject{}, [&] {
        UtfStrings utf{env};
        const std::string nativeType = identifier(utf, type);
        const std::string nativeParent = identifier(utf, parent);
        const JavaLists<"java/util/ArrayList"> lists{env};
        jobject javaNames = lists.create();
        std::vector<std::string> names;
        const Service::ReturnCode code = Service::getNamesofObject(nativeType, nativeParent, names);
        if (code == success) lists.addAll(javaNames, names);
        setReturnCode(env, receiver, code);
        return code == success ? javaNames : nullptr;
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1getObjectTypes(JNIEnv* env, jobject receiver) {
    return entryPoint(env, jobject{}, [&] {
        const JavaLists<"java/util/ArrayList"> lists{env};
        jobject javaTypes = lists.create();
        lists.addAll(javaTypes, Service::getObjectTypes());
        setReturnCode(env, receiver, success);
        return javaTypes;
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1getAdminState(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name) {
    return readState(env, receiver, Service::getAdminState, convertAdminState, type, parent, name);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1setAdminState(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name, jobject javaState) {
    return changingEntryPoint(env, [&] {
        ObjectId id{env, type, parent, name};
        const Service::AdminState state = convertJAdminState(env, javaState);
        return report(env, receiver, id.utf, Service::setAdminState(id.type, id.parent, id.name, state));
    });
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1getOpState(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name) {
    return readState(env, receiver, Service::getOpState, convertOpState, type, parent, name);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_config_ServiceUtils__1setOpState(
    JNIEnv* env, jobject receiver, jstring type, jstring parent, jstring name, jobject javaState) {
    return entryPoint(env, jobject{}, [&] {
        ObjectId id{env, type, parent, name};
        const Service::OpState state = convertJOpState(env, javaState);
        return report(env, receiver, id.utf, Service::setOpState(id.type, id.parent, id.name, state));
    });
}
}

}  // namespace talvern::bridge
