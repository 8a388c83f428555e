#pragma once

#include <jni.h>

#include <array>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "bridge/marshalling.h"
#include "hardware/readList.h"
#include "platform/statusUtils.h"

namespace talvern::bridge {

// What the Java constructor of each kind of sensor takes behind name, reading and flag: nothing, or six
// limits.

inline std::array<jdouble, 0> limitsOf(const statusUtils::FanStatus&) { return {}; }
inline std::array<jdouble, 0> limitsOf(const statusUtils::TempStatus&) { return {}; }
inline std::array<jdouble, 6> limitsOf(const statusUtils::PowerStatus&) { return {}; }
inline std::array<jdouble, 6> limitsOf(const statusUtils::VoltStatus& voltage) {
    // Crossed on purpose: the record has the maximum first, the Java constructor the minimum.
    return {static_cast<jdouble>(voltage.minimum), static_cast<jdouble>(voltage.maximum)};
}

/// A `Sensor[]` of what `read` delivers, in order; null if it fails or there is no sensor.
template <typename Status>
jobjectArray readSensors(JNIEnv* env, bool (*read)(std::vector<Status>&)) {
    constexpr bool hasLimits = !decltype(limitsOf(std::declval<Status>())){}.empty();
    using Create = std::conditional_t<
        hasLimits, Constructor<"(Ljava/lang/String;Ljava/lang/String;ZDDDDDD)V">,
        Constructor<"(Ljava/lang/String;Ljava/lang/String;Z)V">>;

    const std::vector<Status> sensors = readList(read);
    if (sensors.empty()) return nullptr;

    jclass sensorClass = findClass(env, "com/kvo/talvern/appliance/Sensor");
    const Create create{env, sensorClass};
    const Constructor<"()V"> createEmpty{env, sensorClass};
    return toJavaArray(env, sensorClass, createEmpty(), sensors, [&](const Status& sensor) {
        jstring name = toJavaString(env, sensor.name);
        jstring reading = toJavaString(env, sensor.reading);
        const auto createWith = [&](auto... limits) { return create(name, reading, sensor.isOk, limits...); };
        return std::apply(createWith, limitsOf(sensor));
    });
}

}  // namespace talvern::bridge
