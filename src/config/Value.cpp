#include "platform/value.h"

#include <memory>

#include "bridge/passOn.h"
#include "config/valueConversion.h"

namespace talvern::bridge {

extern "C" {

JNIEXPORT jstring JNICALL Java_com_kvo_talvern_config_Value__1asXML(JNIEnv* env, jobject receiver) {
    return entryPoint(env, jstring{}, [&]() -> jstring {
        const std::unique_ptr<const config::Value> tree{convertJValue2Value(env, receiver)};
        if (tree == nullptr) {
            throwTalvernException(env, "value could not be converted");
            return nullptr;
        }
        return toJavaString(env, tree->asXML());
    });
}
}

}  // namespace talvern::bridge
