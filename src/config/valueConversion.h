#pragma once

#include <jni.h>

#include "platform/value.h"

// Configuration values between Java and native trees. Every class and member is looked up once per
// conversion, when it is first needed. What the called Java code throws stays pending while the conversion
// goes on.

/// A new Java value for `value` and all below it, as a local reference. Null for null, and where the native
/// value is of no known kind.
/// @throws std::length_error      the tree is deeper than 1,000 levels or has more than 4,000,000 values
/// @throws PendingJavaException   a lookup failed, or the JVM could not create a text, structure or list
JNIEXPORT jobject convertValue2JValue(JNIEnv* env, const talvern::config::Value* value);

/// A new native tree for the Java value `value`, which belongs to the caller. Null for null, and where the
/// Java object is of no known kind; within a tree, such an object becomes a null child.
/// @throws std::invalid_argument  a text, a key, an entry set, an iterator or a map entry is null or, but for
///                                the text, not what its name says
/// @throws std::length_error      the tree is deeper than 1,000 levels, contains itself, or has more than
///                                4,000,000 values or 256 MiB of text, null children and repeated ones
///                                included
/// @throws PendingJavaException   a lookup or a call of the value's own methods failed; the JVM's error is
///                                pending
JNIEXPORT talvern::config::Value* convertJValue2Value(JNIEnv* env, jobject value);
