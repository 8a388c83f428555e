#include "network/keyValPair.h"

#include <string>

#include "bridge/utfStrings.h"

namespace talvern::bridge {

using types::KeyValPair;

void putAll(JNIEnv* env, const KeyValPair& attributes, const JavaHashMaps& maps, jobject map) {
    for (const auto& [key, value] : attributes.pairs) {
        jstring javaKey = toJavaString(env, key);
        jstring javaValue = toJavaString(env, value);
        maps.put(map, javaKey, javaValue);
    }
}

jobjectArray toJavaHashMapArray(
    JNIEnv* env, const std::vector<KeyValPair*>& records, const JavaHashMaps& maps, const char* listName) {
    requireRecords(records, listName);
    return toJavaArray(env, maps.javaClass(), maps.create(), records, [&](const KeyValPair* record) {
        jobject map = maps.create();
        putAll(env, *record, maps, map);
        return map;
    });
}

bool toKeyValPair(JNIEnv* env, jobjectArray keys, jobjectArray values, KeyValPair& attributes) {
    const jsize length = lengthOf(env, keys);
    if (lengthOf(env, values) != length) return false;
    TextLimit limit;
    for (jsize i = 0; i < length; ++i) {
        jstring javaKey = elementOf(env, keys, i);
        jstring javaValue = elementOf(env, values, i);
        UtfStrings utf{env};
        const char* key = utf.take(javaKey);
        const char* value = utf.take(javaValue);
        limit.count(key);
        limit.count(value);
        attributes.pairs.insert_or_assign(key, value);
    }
    return true;
}

}  // namespace talvern::bridge
