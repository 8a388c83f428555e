#include <algorithm>
#include <atomic>
#include <climits>
#include <dlfcn.h>
#include <functional>
#include <semaphore>
#include <stdexcept>
#include <thread>
#include <unistd.h>

#include "mocks/firmwareManagerUtils.h"
#include "support/bridgeTest.h"

using talvern::firmwareManagerUtils::UpgradeCallback;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;
using testing::Throw;

namespace {

std::function<unsigned(unsigned)> onSleep;

}  // namespace

/// Takes the place of the C library's in the bridge, too, so that no test waits.
extern "C" unsigned sleep(unsigned seconds) { return onSleep ? onSleep(seconds) : 0; }

namespace {

constexpr auto javaClass = "firmwaremanager/FirmwareManagerUtils";
constexpr auto callbackInterface = "com/kvo/talvern/firmwaremanager/FirmwareManagerUtils$UpgradeCallback";
constexpr auto codeClass = "com/kvo/talvern/firmwaremanager/UpgradeCode";

template <typename Type>
Type& bridgeVariable(const char* name) {
    static void* const bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
    return *static_cast<Type*>(dlsym(bridge, name));
}

void onThisThread(const std::function<void()>& action) { action(); }
void onPlatformThread(const std::function<void()>& action) { std::thread{action}.join(); }

/// A thread that Java knows, and one that it does not know.
const auto bothKindsOfThread = {std::pair{"on the Java thread", &onThisThread},
                                {"on a platform thread", &onPlatformThread}};

/// Undoes what `javaEnv` did for this thread.
void detachFromJava() {
    JavaVM* jvm = nullptr;
    javaEnv()->GetJavaVM(&jvm);
    jvm->DetachCurrentThread();
}

/// Passes everything on to the JVM, but for what a test has it count or refuse.
class JvmAccess {
  public:
    explicit JvmAccess(JavaVM* realVm) : table_{*realVm->functions} {
        original = realVm->functions;
        refuses = false;
        attached = detached = 0;
        table_.AttachCurrentThreadAsDaemon = [](JavaVM* jvm, void** env, void* arguments) {
            ++attached;
            return refuses ? JNI_ERR : original->AttachCurrentThreadAsDaemon(jvm, env, arguments);
        };
        table_.AttachCurrentThread = [](JavaVM*, void**, void*) { return JNI_ERR; };
        table_.DetachCurrentThread = [](JavaVM* jvm) {
            ++detached;
            return original->DetachCurrentThread(jvm);
        };
    }

    JavaVM vm{&table_};
    static inline std::atomic<bool> refuses;
    static inline std::atomic<int> attached, detached;

  private:
    JNIInvokeInterface_ table_;
    static inline const JNIInvokeInterface_* original;
};

class FirmwareTest : public BridgeTest {
  protected:
    FirmwareTest() {
        forget();
        onSleep = nullptr;
        ON_CALL(mock<FirmwareManagerMock>(), upgrade)
            .WillByDefault([&](const std::string&, bool, bool, UpgradeCallback* callback) {
                received = callback;
                return 0;
            });
    }

    /// Brings the bridge back to what it was when it was loaded.
    void forget() {
        if (registered != nullptr) env->DeleteGlobalRef(registered);
        delete native;
        vm = nullptr;
        registered = nullptr;
        native = nullptr;
    }

    jint upgrade(jobject callback) {
        return call(javaClass, "_upgradeFirmware", javaString("image"), JNI_TRUE, JNI_FALSE, callback)
            .result.i;
    }

    jobject newCallback(const std::string& kind = "") {
        jclass found = env->FindClass(("com/kvo/talvern/testing/RecordingCallback" + kind).c_str());
        return env->NewObject(found, env->GetMethodID(found, "<init>", "()V"));
    }

    /// What the bridge has done about references and the JVM since the last call.
    std::vector<std::string> stateCalls() {
        std::vector<std::string> names;
        for (const JniTable::Call& made : table.calls()) {
            const std::string name{made.function};
            if (name == "GetJavaVM" || name == "NewGlobalRef" || name == "DeleteGlobalRef")
                names.push_back(name);
        }
        table.restart();
        return names;
    }

    bool isRegistered(jobject callback) { return env->IsSameObject(registered, callback) == JNI_TRUE; }

    JavaVM*& vm = bridgeVariable<JavaVM*>("g_vm");
    jobject& registered = bridgeVariable<jobject>("sJCallback");
    UpgradeCallback*& native = bridgeVariable<UpgradeCallback*>("sFwCallback");
    UpgradeCallback* received = nullptr;  ///< by the platform's latest upgrade
};

TEST_F(FirmwareTest, PassesTheAnswersOfTheSimpleOperationsOn) {
    FirmwareManagerMock& platform = mock<FirmwareManagerMock>();
    for (const auto& [answer, wasRolledBack] : {std::pair{0, 0}, {1, 1}, {5, 1}, {-1, 1}}) {
        EXPECT_CALL(platform, rollback).WillOnce(Return(answer));
        EXPECT_CALL(platform, deletePrevious).WillOnce(Return(answer));
        EXPECT_CALL(platform, reflash("image")).WillOnce(Return(answer));
        EXPECT_EQ(call(javaClass, "_rollbackFirmware").result.i, wasRolledBack);
        EXPECT_EQ(call(javaClass, "_deletePreviousFirmware").result.i, answer);
        EXPECT_EQ(call(javaClass, "_reflashFirmware", javaString("image")).result.i, answer);
    }
    EXPECT_CALL(platform, isReleaseKeyed).WillOnce(Return(true)).WillOnce(Return(false));
    EXPECT_EQ(call(javaClass, "_isReleaseKeyed").resultText, "true");
    EXPECT_EQ(call(javaClass, "_isReleaseKeyed").resultText, "false");
}

TEST_F(FirmwareTest, TakesAnyByteButZeroForATrueFlag) {
    for (const auto& [first, second] : {std::pair<int, int>{0, 1}, {1, 0}, {2, 0}, {0, 128}}) {
        EXPECT_CALL(mock<FirmwareManagerMock>(), upgrade("image", first != 0, second != 0, _));
        call(javaClass, "_upgradeFirmware", javaString("image"), static_cast<jboolean>(first),
             static_cast<jboolean>(second), jobject{});
    }
}

TEST_F(FirmwareTest, WaitsThreeSecondsAfterEveryAnswerButNotAfterAnException) {
    std::vector<unsigned> slept;
    onSleep = [&](unsigned seconds) {
        EXPECT_STREQ(table.calls().back().function, "ReleaseStringUTFChars");
        slept.push_back(seconds);
        return slept.size() == 1 ? 2U : 0U;  // the first time, a signal wakes the thread
    };
    EXPECT_CALL(mock<FirmwareManagerMock>(), upgrade)
        .WillOnce(Return(0))
        .WillOnce(Return(7))
        .WillOnce(Throw(std::runtime_error{"planted"}));
    EXPECT_EQ(upgrade(nullptr), 0);
    EXPECT_THAT(slept, ElementsAre(3, 2));
    EXPECT_EQ(upgrade(nullptr), 7);
    EXPECT_THAT(slept, ElementsAre(3, 2, 3));
    EXPECT_EQ(upgrade(nullptr), -1);
    EXPECT_THAT(slept, ElementsAre(3, 2, 3));
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: planted");
}

TEST_F(FirmwareTest, KeepsOneNativeCallbackAndTheLatestJavaCallback) {
    EXPECT_EQ(upgrade(nullptr), 0);
    EXPECT_EQ(received, nullptr);
    EXPECT_TRUE(vm == nullptr && registered == nullptr && native == nullptr);
    EXPECT_THAT(stateCalls(), IsEmpty());

    jobject first = newCallback();
    upgrade(first);
    EXPECT_THAT(stateCalls(), ElementsAre("GetJavaVM", "NewGlobalRef"));
    UpgradeCallback* const only = native;
    EXPECT_TRUE(vm != nullptr && only != nullptr && received == only && isRegistered(first));

    jobject second = newCallback();
    upgrade(second);
    EXPECT_THAT(stateCalls(), ElementsAre("DeleteGlobalRef", "NewGlobalRef"));
    EXPECT_TRUE(native == only && received == only && isRegistered(second));

    received = nullptr;
    upgrade(nullptr);
    EXPECT_THAT(stateCalls(), IsEmpty());
    EXPECT_TRUE(native == only && received == only && isRegistered(second));
    received->progress(40, 100, FwUpgradeCode::writing);
    EXPECT_EQ(describe(first), "[]");
    EXPECT_EQ(describe(second), "[40/100 WRITING]");
}

TEST_F(FirmwareTest, AsksForTheJvmAgainAfterARefusal) {
    jobject callback = newCallback();
    table.restart();
    table.failCall(1);  // after the characters of the image
    EXPECT_EQ(upgrade(callback), 0);
    EXPECT_THAT(stateCalls(), ElementsAre("GetJavaVM", "NewGlobalRef"));
    EXPECT_EQ(received, nullptr);
    EXPECT_TRUE(vm == nullptr && native == nullptr && isRegistered(callback));
    upgrade(callback);
    EXPECT_TRUE(vm != nullptr && received != nullptr && received == native);
}

TEST_F(FirmwareTest, ReportsFromEveryThread) {
    jobject callback = newCallback();
    upgrade(callback);
    for (const auto& [where, run] : bothKindsOfThread) {
        run([&] { received->progress(INT_MIN, INT_MAX, FwUpgradeCode::failed); });
    }
    EXPECT_EQ(describe(callback), "[-2147483648/2147483647 FAILED, -2147483648/2147483647 FAILED]");
}

TEST_F(FirmwareTest, TouchesNothingWhenNobodyListens) {
    jobject callback = newCallback();
    upgrade(callback);
    JvmAccess access{std::exchange(vm, nullptr)};
    const auto report = [&] { received->progress(1, 2, FwUpgradeCode::verifying); };
    onPlatformThread(report);

    vm = &access.vm;
    jobject reference = std::exchange(registered, nullptr);
    onPlatformThread(report);
    EXPECT_EQ(JvmAccess::attached, 0);

    registered = reference;
    JvmAccess::refuses = true;
    onPlatformThread(report);
    EXPECT_EQ(JvmAccess::attached, 1);
    EXPECT_EQ(JvmAccess::detached, 0);
    EXPECT_EQ(describe(callback), "[]");
}

TEST_F(FirmwareTest, DetachesTheThreadsThatItAttachedWhenTheyEnd) {
    jobject callback = newCallback();
    upgrade(callback);
    JvmAccess access{std::exchange(vm, nullptr)};
    vm = &access.vm;
    onPlatformThread([&] {
        for (int i = 0; i < 3; ++i) received->progress(1, 2, FwUpgradeCode::verifying);
        EXPECT_EQ(JvmAccess::detached, 0);
    });
    EXPECT_EQ(JvmAccess::detached, 1);

    onPlatformThread([&] {
        javaEnv();  // attached by someone else, who also detaches it
        received->progress(2, 2, FwUpgradeCode::verifying);
        detachFromJava();
    });
    EXPECT_EQ(JvmAccess::detached, 1);
    EXPECT_EQ(describe(callback), "[1/2 VERIFYING, 1/2 VERIFYING, 1/2 VERIFYING, 2/2 VERIFYING]");
    upgrade(nullptr);
}

TEST_F(FirmwareTest, LeavesWhatTheCallbackThrowsToTheThread) {
    const auto twoReports = [&](const std::string&, bool, bool, UpgradeCallback* target) {
        for (const int done : {1, 2}) target->progress(done, 2, FwUpgradeCode::verifying);
        return 0;
    };
    EXPECT_CALL(mock<FirmwareManagerMock>(), upgrade).WillOnce(twoReports).WillOnce([&](auto&&... arguments) {
        onPlatformThread([&] { twoReports(arguments...); });
        onPlatformThread([&] { twoReports(arguments...); });
        return 0;
    });
    jobject callback = newCallback("$Throwing");
    EXPECT_EQ(upgrade(callback), 0);
    EXPECT_EQ(takeThrown(), "java.lang.IllegalStateException: callback");
    EXPECT_EQ(describe(callback), "[1/2 VERIFYING]");

    callback = newCallback("$Throwing");
    EXPECT_EQ(upgrade(callback), 0);
    EXPECT_EQ(describe(callback), "[1/2 VERIFYING, 1/2 VERIFYING, 2/2 VERIFYING]");
}

TEST_F(FirmwareTest, LetsACallbackStartAnotherUpgrade) {
    for (const auto& [where, run] : bothKindsOfThread) {
        SCOPED_TRACE(where);
        jobject callback = newCallback("$Restarting");
        upgrade(callback);
        run([&] { received->progress(1, 2, FwUpgradeCode::verifying); });
        received->progress(2, 2, FwUpgradeCode::writing);
        EXPECT_EQ(describe(callback), "[1/2 VERIFYING] then [2/2 WRITING]");
    }
}

TEST_F(FirmwareTest, FindsTheClassesThatOnlyTheCallbackKnows) {
    jclass recording = env->FindClass("com/kvo/talvern/testing/RecordingCallback");
    jobject callback = env->CallStaticObjectMethod(
        recording, env->GetStaticMethodID(recording, "fromHiddenClasses", "()Ljava/lang/Object;"));
    upgrade(callback);
    onPlatformThread([&] { received->progress(1, 4, FwUpgradeCode::verifying); });
    received->progress(2, 4, FwUpgradeCode::unpacking);
    for (const char* hidden : {callbackInterface, codeClass}) {
        table.restart();
        table.hideClass(hidden);
        received->progress(3, 4, FwUpgradeCode::writing);
    }
    EXPECT_EQ(describe(callback), "[1/4 VERIFYING, 2/4 UNPACKING, 3/4 WRITING, 3/4 WRITING]");
}

TEST_F(FirmwareTest, DropsAReportThatCannotBeMade) {
    jobject callback = newCallback();
    for (jobject listener : {callback, static_cast<jobject>(javaString("no callback"))}) {
        upgrade(listener);
        for (const auto& [where, run] : bothKindsOfThread) {
            SCOPED_TRACE(where);
            run([&] {
                for (const int code : {-1, 5, INT_MAX}) received->progress(1, 2, FwUpgradeCode{code});
                EXPECT_EQ(takeException(javaEnv()), "");
            });
        }
    }
    EXPECT_EQ(describe(callback), "[]");
}

TEST_F(FirmwareTest, DropsAReportWhenAnyCallFails) {
    jobject callback = newCallback();
    upgrade(callback);
    const auto report = [&] { received->progress(1, 2, FwUpgradeCode::verifying); };
    for (const bool askTheLoader : {false, true}) {
        const auto restart = [&] {
            table.restart();
            if (askTheLoader) table.hideClass(callbackInterface);
        };
        restart();
        report();
        const std::vector<JniTable::Call> calls = table.calls();
        EXPECT_EQ(describe(callback), "[1/2 VERIFYING]");
        upgrade(callback = newCallback());
        for (std::size_t i = 0; i < calls.size(); ++i) {
            const std::string function{calls[i].function};
            // The other way to the classes.
            if (!calls[i].canFail || function == "FindClass") continue;
            SCOPED_TRACE(function + " " + calls[i].detail);
            restart();
            table.failCall(i);
            report();
            const bool isThrownByCallback = function == "CallVoidMethodA";
            EXPECT_EQ(takeException(env), isThrownByCallback ? "java.lang.OutOfMemoryError: planted" : "");
        }
        EXPECT_EQ(describe(callback), "[]");
    }
}

TEST_F(FirmwareTest, RunsTwoUpgradesAtOnce) {
    constexpr int upgrades = 300;
    ON_CALL(mock<FirmwareManagerMock>(), upgrade)
        .WillByDefault([](const std::string&, bool, bool, UpgradeCallback* target) {
            target->progress(1, 2, FwUpgradeCode::verifying);
            onPlatformThread([&] { target->progress(2, 2, FwUpgradeCode::writing); });
            return 0;
        });
    const std::vector<jobject> callbacks{env->NewGlobalRef(newCallback()), env->NewGlobalRef(newCallback())};
    std::vector<std::thread> threads;
    for (jobject callback : callbacks) {
        threads.emplace_back([&native = bridgeNative(javaClass, "_upgradeFirmware"), callback] {
            JNIEnv* own = javaEnv();
            own->PushLocalFrame(10 * upgrades);
            for (int i = 0; i < upgrades; ++i) {
                EXPECT_EQ(
                    invoke(native, {toJvalue(javaString("image")), {}, {}, toJvalue(callback)}).exception,
                    "");
            }
            own->PopLocalFrame(nullptr);
            detachFromJava();
        });
    }
    for (std::thread& thread : threads) thread.join();
    const std::string reports = describe(callbacks[0]) + describe(callbacks[1]);
    EXPECT_EQ(std::count(reports.begin(), reports.end(), '/'), 2 * 2 * upgrades);
    for (jobject callback : callbacks) env->DeleteGlobalRef(callback);
}

TEST_F(FirmwareTest, LeavesNothingBehind) {
    constexpr int upgrades = 1000;
    jclass threadClass = env->FindClass("java/lang/Thread");
    jmethodID activeCount = env->GetStaticMethodID(threadClass, "activeCount", "()I");
    const auto threadCount = [&] { return env->CallStaticIntMethod(threadClass, activeCount); };

    // One platform thread for all upgrades, whose local references live until it ends, and one for each.
    std::binary_semaphore reportIsDue{0}, reportIsMade{0};
    bool isOver = false;
    std::thread longLived{[&] {
        for (reportIsDue.acquire(); !isOver; reportIsDue.acquire()) {
            received->progress(1, 2, FwUpgradeCode::verifying);
            reportIsMade.release();
        }
    }};
    const auto upgradeOnce = [&](jobject callback) {
        upgrade(callback);
        reportIsDue.release();
        reportIsMade.acquire();
        onPlatformThread([&] { received->progress(2, 2, FwUpgradeCode::finished); });
    };
    upgradeOnce(newCallback());
    const jint threadsBefore = threadCount();

    std::vector<jweak> callbacks;
    for (int i = 0; i < upgrades; ++i) {
        env->PushLocalFrame(100);
        jobject callback = newCallback();
        callbacks.push_back(env->NewWeakGlobalRef(callback));
        upgradeOnce(callback);
        EXPECT_EQ(describe(callback), "[1/2 VERIFYING, 2/2 FINISHED]");
        env->PopLocalFrame(nullptr);
    }
    EXPECT_EQ(threadCount(), threadsBefore);
    jclass systemClass = env->FindClass("java/lang/System");
    env->CallStaticVoidMethod(systemClass, env->GetStaticMethodID(systemClass, "gc", "()V"));
    const auto isAlive = [&](jweak callback) { return env->IsSameObject(callback, nullptr) == JNI_FALSE; };
    EXPECT_EQ(std::count_if(callbacks.begin(), callbacks.end(), isAlive), 1) << "only the last is registered";
    EXPECT_TRUE(isAlive(callbacks.back()));

    isOver = true;
    reportIsDue.release();
    longLived.join();
    EXPECT_EQ(threadCount(), threadsBefore - 1);
    for (jweak callback : callbacks) env->DeleteWeakGlobalRef(callback);
}

/// A platform that waits for its thread before the process ends. The thread reports once before and once
/// after the JVM's end.
class WaitingPlatform {
  public:
    ~WaitingPlatform() {
        mayEnd_.release();
        thread_.join();
    }

    void reportTo(UpgradeCallback* target) {
        thread_ = std::thread{[this, target] {
            target->progress(1, 2, FwUpgradeCode::verifying);
            hasReported_.release();
            mayEnd_.acquire();
            target->progress(2, 2, FwUpgradeCode::writing);
        }};
        hasReported_.acquire();
    }

  private:
    std::binary_semaphore hasReported_{0}, mayEnd_{0};
    std::thread thread_;
};

class FirmwareDeathTest : public FirmwareTest {
  protected:
    FirmwareDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    void endJvmThenThread() {
        alarm(60);
        upgrade(newCallback());
        {
            WaitingPlatform platform;
            platform.reportTo(received);
            vm->DestroyJavaVM();
        }
        std::_Exit(0);
    }

    void endProcessFromJava() {
        alarm(60);
        upgrade(newCallback());
        static WaitingPlatform platform;
        platform.reportTo(received);
        platform::mocks().clear();
        jclass systemClass = env->FindClass("java/lang/System");
        env->CallStaticVoidMethod(systemClass, env->GetStaticMethodID(systemClass, "exit", "(I)V"), 0);
    }
};

TEST_F(FirmwareDeathTest, LetsAThreadEndAfterTheJvm) {
    EXPECT_EXIT(endJvmThenThread(), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(endProcessFromJava(), testing::ExitedWithCode(0), "");
}

}  // namespace
