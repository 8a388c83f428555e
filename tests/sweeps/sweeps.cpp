#include "sweeps/sweeps.h"

#include <algorithm>
#include <functional>
#include <map>
#include <new>
#include <set>
#include <stdexcept>

#include "bridge/signature.h"
#include "mocks/log.h"
#include "mocks/mock.h"
#include "platform/messaging.h"
#include "support/allocation.h"
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

const std::string general = "com.kvo.talvern.TalvernException: ";
const std::string unknown = general + "Unknown native exception";
const std::string refused = general + "change failed";

const std::vector<Fault> faults{
    {"a standard exception", [] { throw std::runtime_error{"planted"}; }, general + "planted"},
    {"bad_alloc", [] { throw std::bad_alloc{}; }, general + "std::bad_alloc"},
    {"an empty what()", [] { throw std::logic_error{""}; }, general},
    {"a what() full of formats", [] { throw std::out_of_range{"%s%n%d%s"}; }, general + "%s%n%d%s"},
    {"a huge what()", [] { throw std::runtime_error{std::string(100'000, 'w')}; },
     general + std::string(100'000, 'w')},
    {"an int", [] { throw 7; }, unknown},
    {"a text", [] { throw "planted"; }, unknown},
    {"a ValidationException", [] { throw ValidationException("field", "reason"); },
     general + "validation failed", "com.kvo.talvern.config.ValidationException: field: reason"},
    {"a ConfigChangeException",
     [] {
         throw ConfigChangeException(1, "in use", {"a", "b"});
     },
     refused, refused, "com.kvo.talvern.config.ConfigChangeException: in use"}};

/// Conditions under which something else fails: the platform throws one of the faults, or nothing.
const std::vector<Fault> faultsAndNone = [] {
    std::vector<Fault> conditions = faults;
    conditions.push_back({"nothing", nullptr, ""});
    return conditions;
}();

const std::string& expectedException(const Fault& fault, const NativeMethod& native) {
    static const std::set<std::string> changing{"_createObject", "_updateObject", "_deleteObject",
                                                "_resetObject", "_setAdminState"};
    if (native.className != "com/kvo/talvern/config/ServiceUtils") return fault.inGeneral;
    if (changing.contains(native.name)) return fault.inChange;
    return native.name == "_validateObject" ? fault.inValidation : fault.inGeneral;
}

/// What the native method returns after a failure, as text.
std::string failureValue(const NativeMethod& native) {
    static const std::map<std::string, std::set<std::string>> numbers{
        {"-1",
         {"_initNodeName", "_getCPUCount", "_getTotalMemory", "_getFreeMemory", "_getUptime",
          "_getBatteryInstallationTime", "_getBatteryExpirationTime", "_clearIntrusionStatus",
          "_reflashFirmware", "_upgradeFirmware"}},
        {"0",
         {"_getPlatformTraceMask", "_rollbackFirmware", "_deletePreviousFirmware", "_stopPacketCapture",
          "_removeCapture", "_startTest", "_stopTest"}},
        {"2", {"_resetHostSSHKeys"}},
        {"3", {"_deviceRESET"}},
        {"4", {"_requestReboot", "_requestShutdown", "_networkReady"}},
        {"99", {"_addUser", "_deleteUser", "_sshKeyAdd", "_sshKeyDel"}}};
    const std::string_view type = resultType(native.signature);
    if (type == "V") return "";
    if (type == "Z") return "false";
    if (type != "I" && type != "J") {
        return native.name == "_dnsResolve" ? "" : native.name == "_tcpConnect" ? "JNI error" : "null";
    }
    for (const auto& [number, natives] : numbers) {
        if (natives.contains(native.name)) return number;
    }
    return native.className.ends_with("/EthernetInterfaces") ? "112" : "unknown";
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

/// Runs `check` for each native method while the platform throws each of `conditions`.
template <typename Check>
Findings sweep(const std::vector<NativeMethod>& natives, const std::vector<Fault>& conditions, Check check) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        for (const Fault& condition : conditions) {
            platform::mocks().beforeOperation = condition.raise;
            check(findings, native, condition);
        }
        platform::mocks().beforeOperation = nullptr;
    }
    return findings;
}

}  // namespace

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
    return sweep(natives, faults, [](Findings& findings, const NativeMethod& native, const Fault& fault) {
        const LocalFrame frame;
        Case test{findings, native, std::string{"the platform throwing "} + fault.name,
                  plausibleArguments(native)};
        test.require(test.operations() > 0, "the platform was not called");
        test.require(test.outcome.exception == expectedException(fault, native), "another exception");
        test.requireFailureValue();
        test.requireBuffersReturned();
    });
}

namespace {

/// Calls with arguments of which some are null; `isAnswered` if the contract has an answer for it.
void checkNull(Findings& findings, const NativeMethod& native, const std::string& what,
               const std::vector<jvalue>& arguments, bool isAnswered) {
    Case test{findings, native, "null as " + what, arguments};
    if (isAnswered) {
        test.require(test.outcome.exception.empty(), "an exception");
    } else {
        test.require(test.outcome.exception.starts_with("com.kvo.talvern.TalvernException: null "),
                     "no exception that names the null");
        test.require(test.operations() == 0, "the platform was called");
        test.requireFailureValue();
    }
    test.requireBuffersReturned();
}

}  // namespace

Findings sweepNullArguments(const std::vector<NativeMethod>& natives) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        std::vector<std::size_t> references;
        bool allAnswered = true;
        for (std::size_t i = 0; i < parameterCount(native.signature); ++i) {
            const std::string_view type = parameterType(native.signature, i);
            if (type.front() != 'L' && type.front() != '[') continue;
            const LocalFrame frame;
            references.push_back(i);
            allAnswered = allAnswered && acceptsNull(native, i);
            const std::string argument = "argument " + std::to_string(i + 1);
            std::vector<jvalue> arguments = plausibleArguments(native);
            for (jsize element = 0; type == "[Ljava/lang/String;" && element < 2; ++element) {
                const std::vector<jvalue> withNull = plausibleArguments(native);
                javaEnv()->SetObjectArrayElement(static_cast<jobjectArray>(withNull[i].l), element, nullptr);
                checkNull(findings, native, "element of " + argument, withNull, false);
            }
            arguments[i].l = nullptr;
            checkNull(findings, native, argument, arguments, acceptsNull(native, i));
        }
        if (references.size() < 2) continue;
        const LocalFrame frame;
        std::vector<jvalue> arguments = plausibleArguments(native);
        for (const std::size_t i : references) arguments[i].l = nullptr;
        checkNull(findings, native, "every argument", arguments, allAnswered);
    }
    return findings;
}

namespace {

bool isLookup(const JniTable::Call& call) {
    const std::string_view function{call.function};
    return function == "FindClass" || function == "GetMethodID" || function == "GetStaticMethodID";
}

/// The exception that a failed call leaves behind.
std::string failureOf(const JniTable::Call& call, const std::string& failure) {
    const std::string_view function{call.function};
    if (function == "FindClass") return "java.lang.NoClassDefFoundError: " + call.detail;
    if (isLookup(call)) {
        const std::size_t end = call.detail.find(' ');
        const std::size_t begin = call.detail.rfind('.', end) + 1;
        return "java.lang.NoSuchMethodError: " + call.detail.substr(begin, end - begin);
    }
    if (function == "GetJavaVM" || function == "PushLocalFrame") return "";  // a status only
    if (JniTable::failsSilently(function)) return general + "std::bad_alloc";
    std::string name = failure;
    std::replace(name.begin(), name.end(), '/', '.');
    return name + ": planted";
}

bool runsJavaCode(const JniTable::Call& call) {
    const std::string_view function{call.function};
    return function.starts_with("Call") || function == "NewObjectA";
}

}  // namespace

Findings sweepFailingCalls(const std::vector<NativeMethod>& natives) {
    return sweep(
        natives, faultsAndNone, [](Findings& findings, const NativeMethod& native, const Fault& condition) {
            JniTable& table = *currentJniTable();
            const std::vector<JniTable::Call> calls = [&] {
                const LocalFrame frame;
                table.restart();
                invoke(native, plausibleArguments(native));
                return table.calls();
            }();
            for (std::size_t n = 0; n < calls.size(); ++n) {
                if (!calls[n].canFail) continue;
                for (const char* failure :
                     {"java/lang/OutOfMemoryError", "java/lang/IllegalStateException"}) {
                    if (failure == std::string_view{"java/lang/IllegalStateException"} &&
                        !runsJavaCode(calls[n]))
                        continue;
                    const LocalFrame frame;
                    const std::vector<jvalue> arguments = plausibleArguments(native);
                    table.restart();
                    table.failCall(n, failure);
                    Case test{findings, native,
                              std::string{calls[n].function} + " " + calls[n].detail + " failing as call " +
                                  std::to_string(n) + " while the platform throws " + condition.name,
                              arguments};
                    // Not always the call of the first run: an upgrade depends on those before.
                    const std::vector<JniTable::Call> made = table.calls();
                    table.restart();
                    const bool hasFailed = n < made.size() && made[n].canFail;
                    const std::string expected = hasFailed ? failureOf(made[n], failure) : "";
                    // What the platform throws afterwards takes its place.
                    const bool wasReplaced = condition.raise && !isLookup(calls[n]) &&
                                             test.operations() > 0 &&
                                             test.outcome.exception == expectedException(condition, native);
                    test.require(expected.empty() || test.outcome.exception == expected || wasReplaced,
                                 "not the JVM's error");
                    if (hasFailed && isLookup(made[n])) test.requireFailureValue();
                    test.requireBuffersReturned();
                }
            }
        });
}

Findings sweepHostileAnswers(const std::vector<NativeMethod>& natives,
                             const std::vector<platform::Hostility>& hostilities) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        for (const platform::Hostility hostility : hostilities) {
            const LocalFrame frame;
            const std::vector<jvalue> arguments = plausibleArguments(native);
            platform::mocks().hostility = hostility;
            Case test{findings, native,
                      "hostile answers of kind " + std::to_string(static_cast<int>(hostility)), arguments};
            platform::mocks().hostility = platform::Hostility::none;
            const std::string& exception = test.outcome.exception;
            test.require(exception.empty() || exception.starts_with(general) ||
                             exception.starts_with("java.lang.ArrayIndexOutOfBoundsException: "),
                         "an exception that says nothing");
            test.requireBuffersReturned();
        }
    }
    return findings;
}

Findings sweepFailingMemory(const std::vector<NativeMethod>& natives) {
    return sweep(natives, faultsAndNone, [](Findings& findings, const NativeMethod& native, const Fault&) {
        for (std::size_t n = 0;; ++n) {
            const LocalFrame frame;
            const std::vector<jvalue> arguments = plausibleArguments(native);
            failAllocation(n);
            Case test{findings, native, "allocation " + std::to_string(n) + " failing", arguments};
            if (!allocationHasFailed()) break;
            test.require(
                test.outcome.exception == general + "std::bad_alloc" || test.outcome.exception == unknown,
                "not the failed allocation");
            test.requireFailureValue();
            test.requireBuffersReturned();
        }
    });
}

Findings sweepFailingTrace(const std::vector<NativeMethod>& natives) {
    ON_CALL(mock<LogMock>(), line).WillByDefault([](unsigned, const std::string&) { throw 1; });
    return sweep(natives, faults, [](Findings& findings, const NativeMethod& native, const Fault& fault) {
        const LocalFrame frame;
        Case test{findings, native, std::string{"the trace log failing after "} + fault.name,
                  plausibleArguments(native)};
        test.require(test.outcome.exception == unknown, "another exception");
        test.requireFailureValue();
        test.requireBuffersReturned();
    });
}
