#include <chrono>
#include <dlfcn.h>
#include <functional>
#include <semaphore>
#include <thread>
#include <unistd.h>

#include "support/bridgeTest.h"

using namespace talvern;
using firmwareManagerUtils::UpgradeCallback;
using testing::DoAll;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::Return;
using testing::SaveArg;
using testing::Throw;

static std::function<unsigned(unsigned)> onSleep;

/// Takes the place of the C library's in the bridge, too, so that no test waits.
extern "C" unsigned sleep(unsigned seconds) { return onSleep ? onSleep(seconds) : 0; }

namespace {

template <typename Type>
Type& bridgeVariable(const char* name) {
    static void* const bridge = dlopen(bridgeLibrary().c_str(), RTLD_NOW | RTLD_NOLOAD);
    return *static_cast<Type*>(dlsym(bridge, name));
}

void onThisThread(const std::function<void()>& action) { action(); }
void onPlatformThread(const std::function<void()>& action) { std::thread{action}.join(); }

/// A thread that Java knows, and one that it does not know.
const auto bothKindsOfThread = {
    std::pair{"on the Java thread", &onThisThread}, {"on a platform thread", &onPlatformThread}};

/// A thread of the platform that reports, once at its begin and once at its end.
class ReportingThread {
  public:
    explicit ReportingThread(UpgradeCallback* target)
        : thread_{[this, target] {
              target->progress(1, 2, FwUpgradeCode::verifying);
              hasReported_.release();
              mayEnd_.acquire();
              target->progress(2, 2, FwUpgradeCode::verifying);
          }} {
        hasReported_.acquire();
    }
    ~ReportingThread() {
        mayEnd_.release();
        thread_.join();
    }

  private:
    std::binary_semaphore hasReported_{0}, mayEnd_{0};
    std::thread thread_;
};

class FirmwareTest : public BridgeTest {
  protected:
    /// Brings the bridge back to what it was when it was loaded.
    FirmwareTest() {
        if (registered != nullptr) env->DeleteGlobalRef(registered);
        delete native;
        vm = nullptr;
        registered = nullptr;
        native = nullptr;
        onSleep = nullptr;
        ON_CALL(mockOf<&firmwareManagerUtils::upgrade>(), Call).WillByDefault(DoAll(SaveArg<3>(&received), Return(0)));
    }

    jint upgrade(jobject callback) { return call("_upgradeFirmware", "image", true, false, callback).result.i; }

    void report(int done, FwUpgradeCode code = FwUpgradeCode::verifying) { received->progress(done, 2, code); }

    static jobject newCallback(const std::string& kind = "") {
        return newObject("com/kvo/talvern/testing/RecordingCallback" + kind);
    }

    /// A callback whose classes only its own class loader knows.
    static jobject foreignCallback() {
        return callStatic("com/kvo/talvern/testing/RecordingCallback", "fromHiddenClasses", "()Ljava/lang/Object;");
    }

    JavaVM*& vm = bridgeVariable<JavaVM*>("g_vm");
    jobject& registered = bridgeVariable<jobject>("sJCallback");
    UpgradeCallback*& native = bridgeVariable<UpgradeCallback*>("sFwCallback");
    UpgradeCallback* received = nullptr;  ///< by the platform's latest upgrade
};

TEST_F(FirmwareTest, TakesAnyByteButZeroForATrueFlag) {
    for (const auto& [force, keep] : {std::pair<jboolean, jboolean>{2, 0}, {0, 128}}) {
        EXPECT_CALL(mockOf<&firmwareManagerUtils::upgrade>(), Call("image", force != 0, keep != 0, nullptr));
        call("_upgradeFirmware", "image", force, keep, jobject{});
    }
}

TEST_F(FirmwareTest, WaitsThreeSecondsAfterEveryAnswerButNotAfterAnException) {
    std::vector<unsigned> slept;
    onSleep = [&](unsigned seconds) {
        EXPECT_STREQ(table.calls().back().function, "ReleaseStringUTFChars");
        slept.push_back(seconds);
        return slept.size() < 3 ? seconds - 1 : 0;  // at first, a signal wakes the thread each second
    };
    EXPECT_CALL(mockOf<&firmwareManagerUtils::upgrade>(), Call)
        .WillOnce(Return(0))
        .WillOnce(Return(7))
        .WillOnce(Throw(std::runtime_error{"planted"}));
    EXPECT_EQ(upgrade(nullptr), 0);
    EXPECT_EQ(upgrade(nullptr), 7);
    EXPECT_EQ(upgrade(nullptr), -1);
    EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: planted");
    EXPECT_THAT(slept, ElementsAre(3, 2, 1, 3));
}

TEST_F(FirmwareTest, KeepsOneNativeCallbackAndTheLatestJavaCallback) {
    jobject first = newCallback();
    jobject second = newCallback();
    upgrade(nullptr);
    EXPECT_TRUE(received == nullptr && vm == nullptr && registered == nullptr && native == nullptr);
    table.restart();
    table.failCall(1);  // GetJavaVM, after the characters of the image
    upgrade(first);
    EXPECT_TRUE(received == nullptr && vm == nullptr && registered != nullptr && native == nullptr);
    upgrade(first);
    UpgradeCallback* const only = received;
    EXPECT_TRUE(only != nullptr && vm != nullptr && native == only);
    for (jobject callback : {second, jobject{}}) {
        upgrade(callback);
        EXPECT_TRUE(received == only && native == only);
        received->progress(40, 100, FwUpgradeCode::writing);
    }
    EXPECT_EQ(describe(first) + describe(second), "[][40/100 WRITING, 40/100 WRITING]");
}

TEST_F(FirmwareTest, DropsReportsThatCannotBeMade) {
    jobject callback = newCallback();
    upgrade(callback);
    JavaVM* const realVm = vm;
    jobject reference = registered;
    jobject text = env->NewGlobalRef(javaString("no callback"));
    JNIInvokeInterface_ functions{};  // calling any other of them would crash
    functions.GetEnv = [](JavaVM*, void**, jint) { return JNI_EDETACHED; };
    functions.AttachCurrentThreadAsDaemon = [](JavaVM*, void**, void*) { return JNI_ERR; };
    JavaVM unreachable{&functions};
    for (const auto& [where, run] : bothKindsOfThread) {
        SCOPED_TRACE(where);
        for (const auto& [usedVm, usedCallback] :
             {std::pair{static_cast<JavaVM*>(nullptr), reference}, {&unreachable, reference}, {realVm, text}}) {
            vm = usedVm;
            registered = usedCallback;
            run([&] { report(1); });
        }
        vm = realVm;
        registered = reference;
        run([&] {
            for (const int code : {-1, 5}) report(1, FwUpgradeCode{code});
            EXPECT_EQ(takeException(javaEnv()), "");
        });
    }
    env->DeleteGlobalRef(text);
    EXPECT_EQ(describe(callback), "[]");
}

TEST_F(FirmwareTest, LeavesTheFirstExceptionOfTheCallbackToTheThread) {
    for (const auto& [where, run] : bothKindsOfThread) {
        SCOPED_TRACE(where);
        jobject callback = newCallback("$Throwing");
        upgrade(callback);
        run([&] {
            for (const int done : {1, 2}) {
                table.restart();
                report(done);
            }
            EXPECT_EQ(takeException(javaEnv()), "java.lang.IllegalStateException: at 1");
            if (currentJniTable() == nullptr) return;  // a platform thread's calls go by
            EXPECT_STREQ(table.calls().front().function, "ExceptionClear");
            EXPECT_STREQ(table.calls().back().function, "DeleteLocalRef");
        });
        EXPECT_EQ(describe(callback), "[1/2 VERIFYING, 2/2 VERIFYING]");
    }
}

TEST_F(FirmwareTest, LetsACallbackStartAnotherUpgrade) {
    jobject callback = newCallback("$Restarting");
    upgrade(callback);
    onPlatformThread([&] { report(1); });
    report(2);
    EXPECT_EQ(describe(callback), "[1/2 VERIFYING] then [2/2 VERIFYING]");
}

/// But for that of FindClass, which is not the only way to a class.
TEST_F(FirmwareTest, DropsAReportWhenACallFails) {
    for (jobject callback : {newCallback(), foreignCallback()}) {
        upgrade(callback);
        const auto reportWithFailing = [&](std::size_t index) {
            table.restart();
            table.failCall(index);
            report(1);
        };
        reportWithFailing(static_cast<std::size_t>(-1));
        std::string expected = "[1/2 VERIFYING";
        const std::vector<JniTable::Call> calls = table.calls();
        for (std::size_t i = 0; i < calls.size(); ++i) {
            if (!calls[i].canFail) continue;
            const std::string function{calls[i].function};
            SCOPED_TRACE(function + " " + calls[i].detail);
            reportWithFailing(i);
            if (function == "FindClass") expected += ", 1/2 VERIFYING";
            EXPECT_EQ(takeException(env), function == "CallVoidMethodA" ? "java.lang.OutOfMemoryError: planted" : "");
        }
        onPlatformThread([&] { report(2); });
        EXPECT_EQ(describe(callback), expected + ", 2/2 VERIFYING]");
    }
}

TEST_F(FirmwareTest, LeavesNoThreadAndNoReferenceBehind) {
    const auto threadCount = [&] {
        jclass threadClass = env->FindClass("java/lang/Thread");
        jmethodID activeCount = env->GetStaticMethodID(threadClass, "activeCount", "()I");
        return env->CallStaticIntMethod(threadClass, activeCount);
    };
    struct LastWord {
        std::function<void()> say;
        ~LastWord() { say(); }
    };
    const jint threadsBefore = threadCount();
    jweak first = nullptr;
    {
        const LocalFrame frame;
        jobject callback = newCallback();
        first = env->NewWeakGlobalRef(callback);
        upgrade(callback);
        onPlatformThread([&] { report(1); });
        onPlatformThread([&] {
            thread_local LastWord last{[&] { report(2); }};  // comes after all that this report has set up
            report(1);
        });
        EXPECT_THAT(describe(callback), testing::StartsWith("[1/2 VERIFYING"));
        EXPECT_EQ(threadCount(), threadsBefore);
    }
    {
        const ReportingThread longLived{received};  // whose local references live as long
        upgrade(newCallback());
        jclass systemClass = env->FindClass("java/lang/System");
        env->CallStaticVoidMethod(systemClass, env->GetStaticMethodID(systemClass, "gc", "()V"));
        EXPECT_TRUE(env->IsSameObject(first, nullptr)) << "somebody still refers to the first callback";
    }
    EXPECT_EQ(threadCount(), threadsBefore);
}

using FirmwareDeathTest = FirmwareTest;

TEST_F(FirmwareDeathTest, LetsThreadsEndAfterTheJvm) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto endJvm = [&] {
        alarm(60);
        bool isEndHeldUp = false;  // by a report that is over
        upgrade(newCallback());
        {
            const ReportingThread thread{received};
            const auto before = std::chrono::steady_clock::now();
            vm->DestroyJavaVM();
            isEndHeldUp = std::chrono::steady_clock::now() - before >= std::chrono::seconds{5};
        }
        std::_Exit(isEndHeldUp ? 1 : 0);
    };
    EXPECT_EXIT(endJvm(), ExitedWithCode(0), "");
}

}  // namespace
