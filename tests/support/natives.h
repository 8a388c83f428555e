#pragma once

#include <jni.h>

#include <set>
#include <string>
#include <vector>

/// A native method of a Java class.
struct NativeMethod {
    std::string className;  ///< such as "com/kvo/talvern/appliance/NodeName"
    std::string name;
    std::string signature;
    jclass javaClass;    ///< global reference
    void (*function)();  ///< what the JVM binds to it by name

    [[nodiscard]] std::string fullName() const { return className + "." + name; }
};

/// The native methods of the Java side, all of them.
const std::vector<NativeMethod>& bridgeNatives();

/// The native method of this name, which no two classes share.
const NativeMethod& bridgeNative(const std::string& name);

/// The names of those that tests of their own have called, beside the checks that hold for all.
std::set<std::string>& testedNatives();

/// Arguments of the right types that the native methods accept; local references.
std::vector<jvalue> plausibleArguments(const NativeMethod& native);

/// What came of a call.
struct Outcome {
    jvalue result;
    std::string resultText;  ///< the result as text; empty for void
    std::ptrdiff_t kept;     ///< how many pieces of memory it has not given back
    std::string exception;   ///< "class: message" of the Java exception, which was cleared; empty if none
};

/// Calls the native method's function on the receiver, or on one of its own. Not through the JVM, which drops the
/// result when there is an exception: the failure value would never be seen.
Outcome invoke(const NativeMethod& native, const std::vector<jvalue>& arguments, jobject receiver = nullptr);

/// Calls the native method as Java does. The exception that it raised, as in `Outcome`.
std::string invokeThroughJvm(const NativeMethod& native, const std::vector<jvalue>& arguments);
