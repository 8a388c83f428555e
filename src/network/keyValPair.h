#pragma once

#include <jni.h>

#include <vector>

#include "bridge/marshalling.h"
#include "platform/types.h"

namespace talvern::bridge {

// Attribute sets between the platform and Java.

/// Puts each attribute of `attributes` into the Java map, in the order of the keys.
void putAll(JNIEnv* env, const types::KeyValPair& attributes, const JavaHashMaps& maps, jobject map);

/// A Java array with one java.util.HashMap per record, in order; of length 0 if there are none. `listName`
/// says what the list is of, for the message of the exception.
/// @throws std::runtime_error  one of the pointers is null
jobjectArray toJavaHashMapArray(
    JNIEnv* env, const std::vector<types::KeyValPair*>& records, const JavaHashMaps& maps, const char* listName);

/// Stores each value under the key with the same index; where a key comes again, its last value stays.
/// False: the arrays differ in length, and nothing is stored.
/// @throws std::invalid_argument  one of the arrays or of their elements is null
/// @throws std::length_error      the texts come to more than 256 MiB
bool toKeyValPair(JNIEnv* env, jobjectArray keys, jobjectArray values, types::KeyValPair& attributes);

}  // namespace talvern::bridge
