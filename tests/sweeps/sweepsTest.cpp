// Checks that hold for every native method, made from what reflection tells about it.
#include <functional>
#include <iostream>
#include <map>
#include <new>
#include <set>
#include <stdexcept>

#include "support/allocation.h"
#include "support/bridgeTest.h"

using namespace talvern;
using config::messaging::ConfigChangeException;
using config::messaging::ValidationException;
using testing::AnyOf;
using testing::StartsWith;

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
    {"an int", [] { throw 7; }, unknown},
    {"a ValidationException", [] { throw ValidationException("field", "reason"); }, general + "validation failed",
     "com.kvo.talvern.config.ValidationException: field: reason"},
    {"a ConfigChangeException",
     [] {
         throw ConfigChangeException(1, "in use", {"a", "b"});
     },
     refused, refused, "com.kvo.talvern.config.ConfigChangeException: in use"},
    {"an exception whose trace fails",
     [] {
         platform::onTrace = [](unsigned, const std::string&) { throw 1; };
         throw std::runtime_error{"planted"};
     },
     general + "planted"},
    {"bad_alloc", [] { throw std::bad_alloc{}; }, general + "std::bad_alloc"},
    {"a what() full of formats", [] { throw std::out_of_range{"%s%n%d%s"}; }, general + "%s%n%d%s"}};

/// Conditions under which something else fails: the platform throws one of the faults, or nothing, or has
/// nothing to tell.
const std::vector<Fault> faultsAndNone = [] {
    std::vector<Fault> conditions{faults.begin(), faults.end() - 2};  // those two fail like the first
    conditions.push_back({"nothing", nullptr, ""});
    conditions.push_back({"nothing and is empty", [] { platform::isEmpty = true; }, ""});
    return conditions;
}();

const std::string& expectedException(const Fault& fault, const NativeMethod& native) {
    static const std::set<std::string> changing{
        "_createObject", "_updateObject", "_deleteObject", "_resetObject", "_setAdminState"};
    if (native.className != "com/kvo/talvern/config/ServiceUtils") return fault.inGeneral;
    if (changing.contains(native.name)) return fault.inChange;
    return native.name == "_validateObject" ? fault.inValidation : fault.inGeneral;
}

/// What the native method returns after a failure, as text.
std::string failureValue(const NativeMethod& native) {
    static const std::map<std::string, std::set<std::string>> numbers{
        {"-1",
         {"_initNodeName", "_getCPUCount", "_getTotalMemory", "_getFreeMemory", "_getUptime",
          "_getBatteryInstallationTime", "_getBatteryExpirationTime", "_clearIntrusionStatus", "_reflashFirmware",
          "_upgradeFirmware"}},
        {"0",
         {"_getPlatformTraceMask", "_rollbackFirmware", "_deletePreviousFirmware", "_stopPacketCapture",
          "_removeCapture", "_startTest", "_stopTest"}},
        {"2", {"_resetHostSSHKeys"}},
        {"3", {"_deviceRESET"}},
        {"4", {"_requestReboot", "_requestShutdown", "_networkReady"}},
        {"99", {"_addUser", "_deleteUser", "_sshKeyAdd", "_sshKeyDel"}}};
    const std::string_view type = bridge::resultType(native.signature);
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

/// A null that the contract lets through.
bool acceptsNull(const NativeMethod& native, std::size_t index) {
    const std::string type{bridge::parameterType(native.signature, index)};
    if (native.className == "com/kvo/talvern/config/ServiceUtils") {
        return type == "Ljava/lang/String;" || type == "Lcom/kvo/talvern/config/Value;";
    }
    return (native.name == "_setLocale" && index == 1) || (native.name == "_upgradeFirmware" && index == 3);
}

bool runsJavaCode(const JniTable::Call& call) {
    const std::string_view function{call.function};
    return function.starts_with("Call") || function == "NewObjectA";
}

/// The exception that a failed call leaves behind.
std::string failureOf(const JniTable::Call& call) {
    const std::string_view function{call.function};
    if (function == "FindClass") return "java.lang.NoClassDefFoundError: " + call.detail;
    if (call.isLookup()) {
        const std::size_t end = call.detail.find(' ');
        const std::size_t begin = call.detail.rfind('.', end) + 1;
        return "java.lang.NoSuchMethodError: " + call.detail.substr(begin, end - begin);
    }
    if (function == "GetJavaVM" || function == "PushLocalFrame") return "";  // a status only
    if (JniTable::failsSilently(function)) return general + "std::bad_alloc";
    return "java.lang.OutOfMemoryError: planted";
}

class SweepTest : public BridgeTest {
  protected:
    /// Runs `check` for each native method while the platform throws each of `conditions`.
    template <typename Check>
    void forEach(const std::vector<Fault>& conditions, Check check) {
        for (const NativeMethod& native : bridgeNatives()) {
            for (const Fault& condition : conditions) {
                SCOPED_TRACE(native.fullName() + " while the platform throws " + condition.name);
                platform::beforeOperation = condition.raise;
                check(native, condition);
                platform::beforeOperation = nullptr;
            }
        }
        std::cout << cases_ << " cases over " << bridgeNatives().size() << " native methods\n";
    }

    /// Calls the native method, which must keep nothing.
    Outcome attempt(const NativeMethod& native, const std::vector<jvalue>& arguments) {
        ++cases_;
        platform::onTrace = nullptr;
        platform::isEmpty = false;
        operationsBefore_ = platform::operationCount();
        Outcome outcome = invoke(native, arguments);
        expectSound(native, outcome);
        return outcome;
    }

    /// How often the last attempt called the platform.
    [[nodiscard]] std::size_t operations() const { return platform::operationCount() - operationsBefore_; }

    /// Attempts a call with arguments of which some are null; `isAnswered` if the contract has an answer for
    /// it.
    void attemptWithNull(
        const NativeMethod& native, const std::string& kind, const std::vector<jvalue>& arguments, bool isAnswered) {
        SCOPED_TRACE("null " + kind);
        const Outcome outcome = attempt(native, arguments);
        if (isAnswered) {
            EXPECT_EQ(outcome.exception, "");
        } else {
            EXPECT_THAT(outcome.exception, StartsWith(general + "null " + kind));
            EXPECT_EQ(operations(), 0U);
            EXPECT_EQ(outcome.resultText, failureValue(native));
        }
    }

    /// Lets the JNI call with the number fail.
    void attemptWithFailure(const NativeMethod& native, const Fault& condition, std::size_t number) {
        const LocalFrame frame;
        const std::vector<jvalue> arguments = plausibleArguments(native);
        table.restart();
        table.failCall(number);
        const Outcome outcome = attempt(native, arguments);
        const std::vector<JniTable::Call> made = table.calls();
        table.restart();
        // Not always the call of the first time: an upgrade depends on those before.
        if (number >= made.size() || !made[number].canFail) return;
        SCOPED_TRACE(made[number].function + (" " + made[number].detail) + " failing");
        const std::string expected = failureOf(made[number]);
        if (made[number].isLookup()) {
            EXPECT_EQ(outcome.exception, expected);
            EXPECT_EQ(outcome.resultText, failureValue(native));
        } else if (!expectedException(condition, native).empty() && operations() > 0) {
            // What the platform throws afterwards takes its place.
            EXPECT_THAT(outcome.exception, AnyOf(expected, expectedException(condition, native)));
        } else if (!expected.empty()) {
            EXPECT_EQ(outcome.exception, expected);
        }
        if (std::string_view{made[number].function} == "NewStringUTF") {
            const auto next = made.begin() + static_cast<std::ptrdiff_t>(number) + 1;
            EXPECT_TRUE(std::none_of(next, made.end(), runsJavaCode)) << "Java code is given a null text";
        }
    }

  private:
    std::size_t cases_ = 0;
    std::size_t operationsBefore_ = 0;
};

TEST_F(SweepTest, EveryPlatformExceptionReachesJava) {
    forEach(faults, [&](const NativeMethod& native, const Fault& fault) {
        const LocalFrame frame;
        const Outcome outcome = attempt(native, plausibleArguments(native));
        EXPECT_GT(operations(), 0U);
        EXPECT_EQ(outcome.exception, expectedException(fault, native));
        EXPECT_EQ(outcome.resultText, failureValue(native));
    });
}

/// Every reference argument is null, and an element of every array: an exception that says so and no call of the
/// platform, or the answer that the contract gives.
TEST_F(SweepTest, EveryNullArgumentIsAnswered) {
    forEach({{"nothing", nullptr, ""}}, [&](const NativeMethod& native, const Fault&) {
        for (std::size_t i = 0; i < bridge::parameterCount(native.signature); ++i) {
            const std::string_view type = bridge::parameterType(native.signature, i);
            if (type.front() != 'L' && type.front() != '[') continue;
            const LocalFrame frame;
            SCOPED_TRACE("argument " + std::to_string(i + 1));
            std::vector<jvalue> arguments = plausibleArguments(native);
            if (type == "[Ljava/lang/String;") {
                env->SetObjectArrayElement(static_cast<jobjectArray>(arguments[i].l), 1, nullptr);
                attemptWithNull(native, "array element", arguments, false);
            }
            arguments[i].l = nullptr;
            const char* kind = type == "Ljava/lang/String;" ? "string argument"
                               : type.front() == '['        ? "array argument"
                                                            : "state argument";
            attemptWithNull(native, kind, arguments, acceptsNull(native, i));
        }
    });
}

/// Every single JNI call fails, in calls that succeed otherwise and in those in which the platform throws:
/// that error arrives in Java, and after a failed lookup the failure value.
TEST_F(SweepTest, EveryFailedJniCallArrivesInJava) {
    forEach(faultsAndNone, [&](const NativeMethod& native, const Fault& condition) {
        const std::vector<JniTable::Call> calls = [&] {
            const LocalFrame frame;
            table.restart();
            invoke(native, plausibleArguments(native));
            return table.calls();
        }();
        for (std::size_t number = 0; number < calls.size(); ++number) {
            if (calls[number].canFail) attemptWithFailure(native, condition, number);
        }
    });
}

/// Every single allocation of native memory fails.
TEST_F(SweepTest, EveryFailedAllocationArrivesInJava) {
    forEach(faultsAndNone, [&](const NativeMethod& native, const Fault&) {
        for (std::size_t n = 0;; ++n) {
            const LocalFrame frame;
            const std::vector<jvalue> arguments = plausibleArguments(native);
            failAllocation(n);
            const Outcome outcome = attempt(native, arguments);
            if (!allocationHasFailed()) break;
            SCOPED_TRACE("allocation " + std::to_string(n) + " failing");
            EXPECT_THAT(outcome.exception, AnyOf(general + "std::bad_alloc", unknown));
            EXPECT_EQ(outcome.resultText, failureValue(native));
        }
    });
}

}  // namespace
