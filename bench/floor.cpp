#include <jni.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform.h"
#include "platform/applianceUtils.h"
#include "platform/configService.h"
#include "platform/ethernetInterfaces.h"
#include "platform/nameServers.h"
#include "platform/nodeName.h"
#include "platform/statusUtils.h"
#include "platform/timeServers.h"

// The floor under the cost of the bridge: bare JNI code that gives Java the same results. It makes only the
// calls that the API asks for, each lookup once, and has neither checks nor error handling. Not how to write
// native methods.

using namespace talvern;
using config::ArrayValue;
using config::Service;
using config::SimpleValue;
using config::StructValue;
using config::Value;

namespace {

const char* const objectPut = "(Ljava/lang/Object;Ljava/lang/Object;)Ljava/lang/Object;";

jvalue asValue(jobject object) {
    jvalue value{};
    value.l = object;
    return value;
}

jvalue asValue(jint number) {
    jvalue value{};
    value.i = number;
    return value;
}

jvalue asValue(bool flag) {
    jvalue value{};
    value.z = flag ? JNI_TRUE : JNI_FALSE;
    return value;
}

jstring toJava(JNIEnv* env, const std::string& text) { return env->NewStringUTF(text.c_str()); }

std::string toNative(JNIEnv* env, jstring text) {
    const char* chars = env->GetStringUTFChars(text, nullptr);
    std::string copy{chars};
    env->ReleaseStringUTFChars(text, chars);
    return copy;
}

struct Codes {
    explicit Codes(JNIEnv* e)
        : env{e},
          codeClass{env->FindClass("com/kvo/talvern/config/ReturnCode")},
          valueOf{env->GetStaticMethodID(
              codeClass, "valueOf", "(Ljava/lang/String;)Lcom/kvo/talvern/config/ReturnCode;")} {}

    jobject convert(Service::ReturnCode code) {
        const jvalue name = asValue(env->NewStringUTF(config::RETURNCODE_STR[static_cast<std::int32_t>(code)]));
        return env->CallStaticObjectMethodA(codeClass, valueOf, &name);
    }

    void store(jobject receiver, Service::ReturnCode code) {
        const jvalue javaCode = asValue(convert(code));
        jmethodID setReturnCode =
            env->GetMethodID(env->GetObjectClass(receiver), "setReturnCode", "(Lcom/kvo/talvern/config/ReturnCode;)V");
        env->CallVoidMethodA(receiver, setReturnCode, &javaCode);
    }

    JNIEnv* env;
    jclass codeClass;
    jmethodID valueOf;
};

struct ToJava {
    explicit ToJava(JNIEnv* e)
        : env{e},
          simpleClass{env->FindClass("com/kvo/talvern/config/SimpleValue")},
          structClass{env->FindClass("com/kvo/talvern/config/StructValue")},
          arrayClass{env->FindClass("com/kvo/talvern/config/ArrayValue")},
          createSimple{env->GetMethodID(simpleClass, "<init>", "(Ljava/lang/String;Z)V")},
          createStruct{env->GetMethodID(structClass, "<init>", "(Z)V")},
          createArray{env->GetMethodID(arrayClass, "<init>", "(Z)V")},
          put{env->GetMethodID(
              structClass, "put", "(Ljava/lang/String;Lcom/kvo/talvern/config/Value;)Lcom/kvo/talvern/config/Value;")},
          add{env->GetMethodID(arrayClass, "add", "(Lcom/kvo/talvern/config/Value;)Z")} {}

    jobject convert(const Value* value) {
        const jvalue mu = asValue(value->mu);
        if (const auto* simple = dynamic_cast<const SimpleValue*>(value)) {
            const jvalue arguments[] = {asValue(toJava(env, simple->value)), mu};
            return env->NewObjectA(simpleClass, createSimple, arguments);
        }
        if (const auto* structure = dynamic_cast<const StructValue*>(value)) {
            jobject javaStruct = env->NewObjectA(structClass, createStruct, &mu);
            for (const auto& [key, child] : structure->members) {
                jvalue arguments[2] = {asValue(toJava(env, key))};
                arguments[1] = asValue(convert(child));
                env->CallObjectMethodA(javaStruct, put, arguments);
            }
            return javaStruct;
        }
        jobject javaArray = env->NewObjectA(arrayClass, createArray, &mu);
        for (const Value* child : dynamic_cast<const ArrayValue&>(*value).elements) {
            const jvalue element = asValue(convert(child));
            env->CallBooleanMethodA(javaArray, add, &element);
        }
        return javaArray;
    }

    JNIEnv* env;
    jclass simpleClass, structClass, arrayClass;
    jmethodID createSimple, createStruct, createArray, put, add;
};

struct ToNative {
    explicit ToNative(JNIEnv* e)
        : env{e},
          simpleClass{env->FindClass("com/kvo/talvern/config/SimpleValue")},
          structClass{env->FindClass("com/kvo/talvern/config/StructValue")},
          arrayClass{env->FindClass("com/kvo/talvern/config/ArrayValue")},
          getMU{env->GetMethodID(simpleClass, "getMU", "()Z")},
          getValue{env->GetMethodID(simpleClass, "getValue", "()Ljava/lang/String;")},
          entrySet{env->GetMethodID(structClass, "entrySet", "()Ljava/util/Set;")},
          arrayIterator{env->GetMethodID(arrayClass, "iterator", "()Ljava/util/Iterator;")},
          setIterator{env->GetMethodID(env->FindClass("java/util/Set"), "iterator", "()Ljava/util/Iterator;")} {
        jclass iterator = env->FindClass("java/util/Iterator");
        hasNext = env->GetMethodID(iterator, "hasNext", "()Z");
        next = env->GetMethodID(iterator, "next", "()Ljava/lang/Object;");
        jclass entry = env->FindClass("java/util/Map$Entry");
        getEntryKey = env->GetMethodID(entry, "getKey", "()Ljava/lang/Object;");
        getEntryValue = env->GetMethodID(entry, "getValue", "()Ljava/lang/Object;");
    }

    jobject call(jobject receiver, jmethodID method) { return env->CallObjectMethodA(receiver, method, nullptr); }

    Value* convert(jobject value) {
        const bool mu = env->CallBooleanMethodA(value, getMU, nullptr) == JNI_TRUE;
        if (env->IsInstanceOf(value, simpleClass) == JNI_TRUE) {
            return new SimpleValue{toNative(env, static_cast<jstring>(call(value, getValue))), mu};
        }
        if (env->IsInstanceOf(value, arrayClass) == JNI_TRUE) {
            auto* array = new ArrayValue{mu};
            jobject iterator = call(value, arrayIterator);
            while (env->CallBooleanMethodA(iterator, hasNext, nullptr) == JNI_TRUE) {
                array->add(std::unique_ptr<Value>{convert(call(iterator, next))});
            }
            return array;
        }
        auto* structure = new StructValue{mu};
        jobject iterator = call(call(value, entrySet), setIterator);
        while (env->CallBooleanMethodA(iterator, hasNext, nullptr) == JNI_TRUE) {
            jobject entry = call(iterator, next);
            std::string key = toNative(env, static_cast<jstring>(call(entry, getEntryKey)));
            structure->put(std::move(key), std::unique_ptr<Value>{convert(call(entry, getEntryValue))});
        }
        return structure;
    }

    JNIEnv* env;
    jclass simpleClass, structClass, arrayClass;
    jmethodID getMU, getValue, entrySet, arrayIterator, setIterator, hasNext, next, getEntryKey, getEntryValue;
};

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_com_kvo_talvern_bench_Floor_getCPUCount(JNIEnv*, jobject) {
    return applianceUtils::getCPUCount();
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_bench_Floor_getNodeName(JNIEnv* env, jobject) {
    return toJava(env, nodeName::get());
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_bench_Floor_setNodeName(JNIEnv* env, jobject, jstring name) {
    const char* chars = env->GetStringUTFChars(name, nullptr);
    const std::int32_t status = nodeName::set(chars);
    env->ReleaseStringUTFChars(name, chars);
    return status == 0 ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_bench_Floor_getNameServers(JNIEnv* env, jobject) {
    const std::vector<std::string> servers = nameServers::getNameServers(nullptr);
    jstring empty = env->NewStringUTF("");
    jclass stringClass = env->FindClass("java/lang/String");
    jobjectArray array = env->NewObjectArray(static_cast<jsize>(servers.size()), stringClass, empty);
    for (std::size_t i = 0; i < servers.size(); ++i) {
        env->SetObjectArrayElement(array, static_cast<jsize>(i), toJava(env, servers[i]));
    }
    return array;
}

JNIEXPORT jboolean JNICALL Java_com_kvo_talvern_bench_Floor_setTimeServers(JNIEnv* env, jobject, jobjectArray servers) {
    const jsize length = env->GetArrayLength(servers);
    std::vector<std::string> list;
    list.reserve(static_cast<std::size_t>(length));
    for (jsize i = 0; i < length; ++i) {
        auto* server = static_cast<jstring>(env->GetObjectArrayElement(servers, i));
        const char* chars = env->GetStringUTFChars(server, nullptr);
        list.emplace_back(chars);
        env->ReleaseStringUTFChars(server, chars);
    }
    return timeServers::setTimeServers(list, nullptr) == 0 ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_bench_Floor_getEthernetInterface(JNIEnv* env, jobject, jstring name) {
    jclass mapClass = env->FindClass("java/util/HashMap");
    jmethodID create = env->GetMethodID(mapClass, "<init>", "()V");
    jmethodID put = env->GetMethodID(mapClass, "put", objectPut);
    jobject map = env->NewObjectA(mapClass, create, nullptr);
    for (const auto& [key, value] : ethernetInterfaces::getInterface(toNative(env, name))->pairs) {
        jvalue arguments[2] = {asValue(toJava(env, key))};
        arguments[1] = asValue(toJava(env, value));
        env->CallObjectMethodA(map, put, arguments);
    }
    return map;
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_bench_Floor_getFanStatus(JNIEnv* env, jobject) {
    std::vector<statusUtils::FanStatus> fans;
    statusUtils::getFanStatus(fans);
    jclass sensorClass = env->FindClass("com/kvo/talvern/appliance/Sensor");
    jmethodID create = env->GetMethodID(sensorClass, "<init>", "(Ljava/lang/String;Ljava/lang/String;Z)V");
    jmethodID createEmpty = env->GetMethodID(sensorClass, "<init>", "()V");
    jobjectArray array = env->NewObjectArray(
        static_cast<jsize>(fans.size()), sensorClass, env->NewObjectA(sensorClass, createEmpty, nullptr));
    for (std::size_t i = 0; i < fans.size(); ++i) {
        const jvalue arguments[] = {
            asValue(toJava(env, fans[i].name)), asValue(toJava(env, fans[i].reading)), asValue(fans[i].isOk)};
        env->SetObjectArrayElement(array, static_cast<jsize>(i), env->NewObjectA(sensorClass, create, arguments));
    }
    return array;
}

JNIEXPORT jobjectArray JNICALL Java_com_kvo_talvern_bench_Floor_getRaidVolumes(JNIEnv* env, jobject) {
    jclass volumeClass = env->FindClass("com/kvo/talvern/appliance/RaidVolume");
    jclass partitionClass = env->FindClass("com/kvo/talvern/appliance/RaidPartition");
    jmethodID createVolume =
        env->GetMethodID(volumeClass, "<init>", "(Ljava/lang/String;I[Lcom/kvo/talvern/appliance/RaidPartition;ZI)V");
    jmethodID createEmptyVolume = env->GetMethodID(volumeClass, "<init>", "()V");
    jmethodID createPartition =
        env->GetMethodID(partitionClass, "<init>", "(Ljava/lang/String;IILjava/lang/String;Z)V");
    jmethodID createEmptyPartition = env->GetMethodID(partitionClass, "<init>", "()V");
    std::vector<statusUtils::VolumeStatus> volumes;
    statusUtils::getVolumeStatus(volumes);
    jobjectArray array = env->NewObjectArray(
        static_cast<jsize>(volumes.size()), volumeClass, env->NewObjectA(volumeClass, createEmptyVolume, nullptr));
    for (std::size_t i = 0; i < volumes.size(); ++i) {
        const statusUtils::VolumeStatus& volume = volumes[i];
        const jvalue name = asValue(toJava(env, volume.name));
        jobjectArray partitions = env->NewObjectArray(
            static_cast<jsize>(volume.partitions.size()), partitionClass,
            env->NewObjectA(partitionClass, createEmptyPartition, nullptr));
        for (std::size_t j = 0; j < volume.partitions.size(); ++j) {
            const statusUtils::PartitionStatus& partition = volume.partitions[j];
            const jvalue arguments[] = {
                asValue(toJava(env, partition.mountPoint)), asValue(jint{partition.size}),
                asValue(jint{partition.used}), asValue(toJava(env, partition.fileSystem)),
                asValue(partition.isMounted)};
            env->SetObjectArrayElement(
                partitions, static_cast<jsize>(j), env->NewObjectA(partitionClass, createPartition, arguments));
        }
        const jvalue arguments[] = {
            name, asValue(jint{volume.raidLevel}), asValue(partitions), asValue(volume.isOk),
            asValue(jint{volume.synchronised})};
        env->SetObjectArrayElement(array, static_cast<jsize>(i), env->NewObjectA(volumeClass, createVolume, arguments));
    }
    return array;
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_bench_Floor_getIntrusionStatus(JNIEnv* env, jobject) {
    jclass javaClass = env->FindClass("com/kvo/talvern/appliance/HardwareStatusUtils$IntrusionStatus");
    jmethodID values = env->GetStaticMethodID(
        javaClass, "values", "()[Lcom/kvo/talvern/appliance/HardwareStatusUtils$IntrusionStatus;");
    jobject constants = env->CallStaticObjectMethodA(javaClass, values, nullptr);
    return env->GetObjectArrayElement(static_cast<jobjectArray>(constants), statusUtils::getIntrusionStatus() + 1);
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_bench_Floor_getAdminState(
    JNIEnv* env, jobject, jobject receiver, jstring type, jstring parent, jstring name) {
    const std::string nativeType = toNative(env, type);
    const std::string nativeParent = toNative(env, parent);
    Service::AdminState state{};
    Codes{env}.store(receiver, Service::getAdminState(nativeType, nativeParent, toNative(env, name), state));
    jclass stateClass = env->FindClass("com/kvo/talvern/config/AdminState");
    jmethodID valueOf =
        env->GetStaticMethodID(stateClass, "valueOf", "(Ljava/lang/String;)Lcom/kvo/talvern/config/AdminState;");
    const jvalue stateName = asValue(env->NewStringUTF(config::ADMINSTATE_STR[static_cast<std::int32_t>(state)]));
    return env->CallStaticObjectMethodA(stateClass, valueOf, &stateName);
}

JNIEXPORT jobject JNICALL
Java_com_kvo_talvern_bench_Floor_validateObject(JNIEnv* env, jobject, jobject receiver, jstring type, jobject value) {
    const std::string nativeType = toNative(env, type);
    const std::unique_ptr<const Value> tree{ToNative{env}.convert(value)};
    const Service::ReturnCode code = Service::validateObject(nativeType, tree.get());
    Codes codes{env};
    codes.store(receiver, code);
    return codes.convert(code);  // anew: the API has it converted after the buffers went back
}

JNIEXPORT jobject JNICALL Java_com_kvo_talvern_bench_Floor_queryObject(
    JNIEnv* env, jobject, jobject receiver, jstring type, jstring parent, jstring name) {
    const std::string nativeType = toNative(env, type);
    const std::string nativeParent = toNative(env, parent);
    Value* value = nullptr;
    Codes{env}.store(receiver, Service::queryObject(nativeType, nativeParent, toNative(env, name), &value));
    return ToJava{env}.convert(value);
}

// What the benchmark needs of its platform.

JNIEXPORT void JNICALL Java_com_kvo_talvern_bench_Floor_setSize(JNIEnv*, jobject, jint size) {
    bench::setSize(static_cast<std::size_t>(size));
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_bench_Floor_makeLists(JNIEnv*, jobject, jint count) {
    bench::makeLists(static_cast<std::size_t>(count));
}

JNIEXPORT void JNICALL Java_com_kvo_talvern_bench_Floor_setRecording(JNIEnv*, jobject, jboolean isRecording) {
    bench::setRecording(isRecording == JNI_TRUE);
}

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_bench_Floor_received(JNIEnv* env, jobject) {
    return toJava(env, bench::received());
}

// The plain C functions that a caller through JNA would write around the platform.

JNIEXPORT std::int32_t talvern_getCPUCount() { return applianceUtils::getCPUCount(); }

JNIEXPORT const char* talvern_getNodeName() {
    thread_local std::string name;
    name = nodeName::get();
    return name.c_str();
}

JNIEXPORT std::int32_t talvern_setNodeName(const char* name) { return nodeName::set(name); }
}
