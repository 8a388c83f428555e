#include "sweeps/sweeps.h"

#include <functional>
#include <map>
#include <set>
#include <stdexcept>

#include "bridge/signature.h"
#include "mocks/mock.h"
#include "platform/messaging.h"
#include "support/jniTable.h"
#include "support/jvm.h"

using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;

namespace {

/// Something that a platform operation throws, and the Java exception that the caller must see.
struct Fault {
    const char* name;
    std::function<void()> raise;
    std::string inGeneral;
    std::string inValidation = inGeneral;  ///< where a ValidationException has its own translation
    std::string inChange = inValidation;   ///< where a ConfigChangeException has one, too
};

const std::vector<Fault>& faults() {
    static const std::string general = "com.kvo.talvern.TalvernException: ";
    static const std::vector<Fault> all{
        {"a standard exception", [] { throw std::runtime_error{"planted"}; }, general + "planted"},
        {"an int", [] { throw 7; }, general + "Unknown native exception"},
        {"a text", [] { throw "planted"; }, general + "Unknown native exception"},
        {"a ValidationException",
         [] {
             throw ValidationException{"field", "reason"};
         },
         general + "validation failed", "com.kvo.talvern.config.ValidationException: field: reason"},
        {"a ConfigChangeException",
         [] {
             throw ConfigChangeException{1, "in use", {"a", "b"}};
         },
         general + "change failed", general + "change failed",
         "com.kvo.talvern.config.ConfigChangeException: in use"},
    };
    return all;
}

const std::string& expectedException(const Fault& fault, const NativeMethod& native) {
    static const std::set<std::string> changing{"_createObject", "_updateObject", "_deleteObject",
                                                "_resetObject", "_setAdminState"};
    if (native.className != "com/kvo/talvern/config/ServiceUtils") return fault.inGeneral;
    if (changing.contains(native.name)) return fault.inChange;
    return native.name == "_validateObject" ? fault.inValidation : fault.inGeneral;
}

/// One native method under one condition: call, then compare.
class Case {
  public:
    Case(Findings& findings, const NativeMethod& native, std::string condition,
         const std::vector<jvalue>& arguments)
        : findings_{findings}, native_{native}, condition_{std::move(condition)} {
        ++findings.cases;
        currentJniTable()->takeComplaints();
        operationsBefore_ = platform::mocks().operationCount();
        outcome = invoke(native, arguments);
    }

    void require(bool holds, const std::string& otherwise) {
        if (!holds) {
            findings_.faults.push_back(native_.fullName() + " with " + condition_ + ": " + otherwise +
                                       " (result '" + outcome.resultText + "', exception '" +
                                       outcome.exception + "')");
        }
    }

    void requireFailureValue() {
        require(outcome.resultText == failureValue(native_), "not its failure value");
    }

    void requireBuffersReturned() {
        for (const std::string& complaint : currentJniTable()->takeComplaints()) require(false, complaint);
    }

    [[nodiscard]] std::size_t operations() const {
        return platform::mocks().operationCount() - operationsBefore_;
    }

    Outcome outcome;

  private:
    Findings& findings_;
    const NativeMethod& native_;
    std::string condition_;
    std::size_t operationsBefore_ = 0;
};

/// A null that the contract lets through.
bool acceptsNull(const NativeMethod& native, std::size_t index) {
    const std::string type{parameterType(native.signature, index)};
    if (native.className == "com/kvo/talvern/config/ServiceUtils") {
        return type == "Ljava/lang/String;" || type == "Lcom/kvo/talvern/config/Value;";
    }
    return (native.name == "_setLocale" && index == 1) || (native.name == "_upgradeFirmware" && index == 3);
}

class LocalFrame {
  public:
    LocalFrame() { javaEnv()->PushLocalFrame(1000); }
    ~LocalFrame() { javaEnv()->PopLocalFrame(nullptr); }
    LocalFrame(const LocalFrame&) = delete;
    LocalFrame& operator=(const LocalFrame&) = delete;
};

}  // namespace

std::string failureValue(const NativeMethod& native) {
    static const std::map<std::string, int> numbers{{"_initNodeName", -1},
                                                    {"_getCPUCount", -1},
                                                    {"_getTotalMemory", -1},
                                                    {"_getFreeMemory", -1},
                                                    {"_getUptime", -1},
                                                    {"_getBatteryInstallationTime", -1},
                                                    {"_getBatteryExpirationTime", -1},
                                                    {"_clearIntrusionStatus", -1},
                                                    {"_reflashFirmware", -1},
                                                    {"_upgradeFirmware", -1},
                                                    {"_getPlatformTraceMask", 0},
                                                    {"_rollbackFirmware", 0},
                                                    {"_deletePreviousFirmware", 0},
                                                    {"_stopPacketCapture", 0},
                                                    {"_removeCapture", 0},
                                                    {"_startTest", 0},
                                                    {"_stopTest", 0},
                                                    {"_resetHostSSHKeys", 2},
                                                    {"_deviceRESET", 3},
                                                    {"_requestReboot", 4},
                                                    {"_requestShutdown", 4},
                                                    {"_networkReady", 4},
                                                    {"_addUser", 99},
                                                    {"_deleteUser", 99},
                                                    {"_sshKeyAdd", 99},
                                                    {"_sshKeyDel", 99}};
    const std::string_view type = resultType(native.signature);
    if (type == "V") return "";
    if (type == "Z") return "false";
    if (type == "I" || type == "J") {
        if (native.className.ends_with("/EthernetInterfaces")) return "112";
        return std::to_string(numbers.at(native.name));
    }
    if (native.name == "_dnsResolve") return "";
    return native.name == "_tcpConnect" ? "JNI error" : "null";
}

Findings sweepBindings(const std::vector<NativeMethod>& natives) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        const LocalFrame frame;
        ++findings.cases;
        const std::string exception = invokeThroughJvm(native, plausibleArguments(native));
        if (!exception.empty()) findings.faults.push_back(native.fullName() + ": " + exception);
    }
    return findings;
}

Findings sweepPlatformExceptions(const std::vector<NativeMethod>& natives) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        for (const Fault& fault : faults()) {
            const LocalFrame frame;
            const std::vector<jvalue> arguments = plausibleArguments(native);
            platform::mocks().beforeOperation = fault.raise;
            Case test{findings, native, std::string{"the platform throwing "} + fault.name, arguments};
            platform::mocks().beforeOperation = nullptr;
            test.require(test.operations() > 0, "the platform was not called");
            test.require(test.outcome.exception == expectedException(fault, native), "another exception");
            test.requireFailureValue();
            test.requireBuffersReturned();
        }
    }
    return findings;
}

Findings sweepNullArguments(const std::vector<NativeMethod>& natives) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        for (std::size_t i = 0; i < parameterCount(native.signature); ++i) {
            const char kind = parameterType(native.signature, i).front();
            if (kind != 'L' && kind != '[') continue;
            const LocalFrame frame;
            std::vector<jvalue> arguments = plausibleArguments(native);
            arguments[i].l = nullptr;
            Case test{findings, native, "a null argument " + std::to_string(i + 1), arguments};
            if (acceptsNull(native, i)) {
                test.require(test.outcome.exception.empty(), "an exception");
            } else {
                test.require(test.outcome.exception.starts_with("com.kvo.talvern.TalvernException: null "),
                             "no exception that names the null");
                test.require(test.operations() == 0, "the platform was called");
                test.requireFailureValue();
            }
            test.requireBuffersReturned();
        }
    }
    return findings;
}

Findings sweepMissingClasses(const std::vector<NativeMethod>& natives) {
    Findings findings;
    JniTable& table = *currentJniTable();
    for (const NativeMethod& native : natives) {
        for (const bool throwing : {false, true}) {
            const auto raise = [] { throw std::runtime_error{"planted"}; };
            platform::mocks().beforeOperation = throwing ? raise : std::function<void()>{};
            const LocalFrame frame;
            table.restart();
            invoke(native, plausibleArguments(native));
            std::set<std::string> classes;
            for (const JniTable::Call& call : table.calls()) {
                if (std::string_view{call.function} == "FindClass") classes.insert(call.detail);
            }
            for (const std::string& javaClass : classes) {
                const LocalFrame innerFrame;
                const std::vector<jvalue> arguments = plausibleArguments(native);
                table.restart();
                table.hideClass(javaClass);
                Case test{findings, native, "no class " + javaClass, arguments};
                table.restart();
                test.require(test.outcome.exception == "java.lang.NoClassDefFoundError: " + javaClass,
                             "not the JVM's error");
                test.requireFailureValue();
                test.requireBuffersReturned();
            }
        }
        platform::mocks().beforeOperation = nullptr;
    }
    return findings;
}
