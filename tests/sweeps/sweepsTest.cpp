// Checks that hold for every native method, made from what reflection tells about it.
#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <new>
#include <set>
#include <stdexcept>

#include "mocks/log.h"
#include "platform/messaging.h"
#include "support/allocation.h"
#include "support/bridgeTest.h"

using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// What a sweep has seen.
struct Findings {
    std::size_t cases = 0;
    std::vector<std::string> faults;  ///< one line each: which native method, under what, did what
};

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

/// Conditions under which something else fails: the platform throws one of the faults, or nothing, or has
/// nothing to tell.
const std::vector<Fault> faultsAndNone = [] {
    std::vector<Fault> conditions = faults;
    conditions.push_back({"nothing", nullptr, ""});
    conditions.push_back(
        {"nothing (and empty)", [] { platform::mocks().hostility = platform::Hostility::empty; }, ""});
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
    const std::string_view type = talvern::bridge::resultType(native.signature);
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

/// One native method under one condition: call, then compare. Its buffers must come back whatever happens.
class Case {
  public:
    Case(Findings& findings, const NativeMethod& native, std::string condition,
         const std::vector<jvalue>& arguments)
        : findings_{findings}, native_{native}, condition_{std::move(condition)} {
        ++findings.cases;
        currentJniTable()->takeComplaints();
        operationsBefore_ = platform::mocks().operationCount();
        outcome = invoke(native, arguments);
        for (const std::string& complaint : currentJniTable()->takeComplaints()) require(false, complaint);
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
    const std::string type{talvern::bridge::parameterType(native.signature, index)};
    if (native.className == "com/kvo/talvern/config/ServiceUtils") {
        return type == "Ljava/lang/String;" || type == "Lcom/kvo/talvern/config/Value;";
    }
    return (native.name == "_setLocale" && index == 1) || (native.name == "_upgradeFirmware" && index == 3);
}

/// Runs `check` for each native method while the platform throws each of `conditions`.
template <typename Check>
Findings sweep(const std::vector<NativeMethod>& natives, const std::vector<Fault>& conditions, Check check) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        for (const Fault& condition : conditions) {
            platform::mocks().beforeOperation = condition.raise;
            check(findings, native, condition);
            platform::mocks().hostility = platform::Hostility::none;
        }
        platform::mocks().beforeOperation = nullptr;
    }
    return findings;
}

/// The JVM binds every native method by its name, and a plausible call ends without an exception.
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

/// Every platform operation throws: one Java exception of the right kind, and the failure value.
Findings sweepPlatformExceptions(const std::vector<NativeMethod>& natives) {
    return sweep(natives, faults, [](Findings& findings, const NativeMethod& native, const Fault& fault) {
        const LocalFrame frame;
        Case test{findings, native, std::string{"the platform throwing "} + fault.name,
                  plausibleArguments(native)};
        test.require(test.operations() > 0, "the platform was not called");
        test.require(test.outcome.exception == expectedException(fault, native), "another exception");
        test.requireFailureValue();
    });
}

/// Calls with arguments of which some are null; `isAnswered` if the contract has an answer for it.
void checkNull(Findings& findings, const NativeMethod& native, const std::string& what,
               const std::vector<jvalue>& arguments, bool isAnswered) {
    Case test{findings, native, "null as " + what, arguments};
    if (isAnswered) {
        test.require(test.outcome.exception.empty(), "an exception");
    } else {
        test.require(test.outcome.exception.starts_with(general + "null "),
                     "no exception that names the null");
        test.require(test.operations() == 0, "the platform was called");
        test.requireFailureValue();
    }
}

/// Every reference argument and every element of an array is null, alone and all at once: an exception that
/// says so and no call of the platform, or the answer that the contract gives.
Findings sweepNullArguments(const std::vector<NativeMethod>& natives) {
    Findings findings;
    for (const NativeMethod& native : natives) {
        std::vector<std::size_t> references;
        bool allAnswered = true;
        for (std::size_t i = 0; i < talvern::bridge::parameterCount(native.signature); ++i) {
            const std::string_view type = talvern::bridge::parameterType(native.signature, i);
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
    std::ranges::replace(name, '/', '.');
    return name + ": planted";
}

bool runsJavaCode(const JniTable::Call& call) {
    const std::string_view function{call.function};
    return function.starts_with("Call") || function == "NewObjectA";
}

/// Lets the JNI call with the number fail that was `call` the first time.
void checkFailingCall(Findings& findings, const NativeMethod& native, const Fault& condition,
                      std::size_t number, const JniTable::Call& call, const char* failure) {
    const LocalFrame frame;
    const std::vector<jvalue> arguments = plausibleArguments(native);
    JniTable& table = *currentJniTable();
    table.restart();
    table.failCall(number, failure);
    Case test{findings, native,
              std::string{call.function} + " " + call.detail + " failing as call " + std::to_string(number) +
                  " while the platform throws " + condition.name,
              arguments};
    // Not always the call of the first time: an upgrade depends on those before.
    const std::vector<JniTable::Call> made = table.calls();
    table.restart();
    if (number >= made.size() || !made[number].canFail) return;
    if (isLookup(made[number])) test.requireFailureValue();
    const std::string expected = failureOf(made[number], failure);
    // What the platform throws afterwards takes its place.
    const bool wasReplaced = condition.raise && !isLookup(call) && test.operations() > 0 &&
                             test.outcome.exception == expectedException(condition, native);
    test.require(expected.empty() || test.outcome.exception == expected || wasReplaced,
                 "not the JVM's error");
    const bool isText = std::string_view{made[number].function} == "NewStringUTF";
    test.require(!isText || std::none_of(made.begin() + static_cast<std::ptrdiff_t>(number) + 1, made.end(),
                                         runsJavaCode),
                 "Java code is given a null for the text");
}

/// Every single JNI call fails, in calls that succeed otherwise and in those in which the platform throws:
/// that error arrives in Java, and after a failed lookup the failure value.
Findings sweepFailingCalls(const std::vector<NativeMethod>& natives) {
    return sweep(natives, faultsAndNone, [](auto& findings, const auto& native, const Fault& condition) {
        const std::vector<JniTable::Call> calls = [&] {
            const LocalFrame frame;
            currentJniTable()->restart();
            invoke(native, plausibleArguments(native));
            return currentJniTable()->calls();
        }();
        std::size_t number = 0;
        for (const JniTable::Call& call : calls) {
            const auto check = [&](const char* failure) {
                checkFailingCall(findings, native, condition, number, call, failure);
            };
            if (call.canFail) check("java/lang/OutOfMemoryError");
            if (runsJavaCode(call)) check("java/lang/IllegalStateException");
            ++number;
        }
    });
}

/// The platform gives hostile answers: empty, huge, extreme, null. Whatever comes of it, the buffers are
/// given back and no more than one Java exception arrives.
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
        }
    }
    return findings;
}

/// Every single allocation of native memory fails: a Java exception that says so.
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
        }
    });
}

/// The trace log throws while a native exception is translated: Java gets the same exception as otherwise.
Findings sweepFailingTrace(const std::vector<NativeMethod>& natives) {
    ON_CALL(mock<LogMock>(), line).WillByDefault([](unsigned, const std::string&) { throw 1; });
    return sweep(natives, faults, [](Findings& findings, const NativeMethod& native, const Fault& fault) {
        const LocalFrame frame;
        Case test{findings, native, std::string{"the trace log failing after "} + fault.name,
                  plausibleArguments(native)};
        test.require(test.outcome.exception == expectedException(fault, native), "another exception");
        test.requireFailureValue();
    });
}

class SweepTest : public BridgeTest {
  protected:
    void expectClean(const Findings& findings) {
        std::cout << findings.cases << " cases over " << bridgeNatives().size() << " native methods\n";
        EXPECT_GE(findings.cases, 1U);
        EXPECT_THAT(findings.faults, IsEmpty());
    }
};

auto faultOf(const char* native, const char* what) { return AllOf(HasSubstr(native), HasSubstr(what)); }

TEST_F(SweepTest, FindsThePlantedFaults) {
    EXPECT_THAT(sweepBindings(unboundNatives()).faults,
                Contains(faultOf("_isNotImplemented", "UnsatisfiedLinkError")));

    const Findings exceptions = sweepPlatformExceptions(plantedNatives());
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_swallowsException", "another exception")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_losesBuffer", "not given back")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_releasesTwice", "given back twice")));
    EXPECT_THAT(exceptions.faults, Contains(faultOf("_releasesBackwards", "another order")));

    EXPECT_THAT(sweepNullArguments(plantedNatives()).faults,
                Contains(faultOf("_callsPlatformWithNull", "the platform was called")));

    EXPECT_THAT(sweepFailingCalls(plantedNatives()).faults,
                Contains(faultOf("_hidesMissingClass", "not the JVM's error")));
}

TEST_F(SweepTest, EveryNativeMethodBindsByItsName) { expectClean(sweepBindings(bridgeNatives())); }

TEST_F(SweepTest, EveryPlatformExceptionReachesJava) {
    expectClean(sweepPlatformExceptions(bridgeNatives()));
}

TEST_F(SweepTest, EveryNullArgumentIsAnswered) { expectClean(sweepNullArguments(bridgeNatives())); }

TEST_F(SweepTest, EveryFailedAllocationArrivesInJava) { expectClean(sweepFailingMemory(bridgeNatives())); }

TEST_F(SweepTest, AFailingTraceLogHidesNoException) { expectClean(sweepFailingTrace(bridgeNatives())); }

TEST_F(SweepTest, EveryFailedJniCallArrivesInJava) { expectClean(sweepFailingCalls(bridgeNatives())); }

TEST_F(SweepTest, HostileAnswersDoNoHarm) {
    using platform::Hostility;
    expectClean(
        sweepHostileAnswers(bridgeNatives(), {Hostility::empty, Hostility::least, Hostility::greatest}));
}

class LargeSweepTest : public LargeTest {};

TEST_F(LargeSweepTest, HugeAnswersDoNoHarm) {
    EXPECT_THAT(sweepHostileAnswers(bridgeNatives(), {platform::Hostility::huge}).faults, IsEmpty());
}

}  // namespace
