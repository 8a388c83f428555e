#pragma once

#include <jni.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Stands between the bridge and the JVM on the current thread: sees each JNI call that the bridge makes,
/// keeps account of the UTF buffers, and lets single calls fail. Calls of other code pass through unseen.
class JniTable {
  public:
    struct Call {
        const char* function;
        std::string
            detail;  ///< what was looked up, as "class" or "class.member signature", or the text taken or given back
        bool canFail;

        [[nodiscard]] bool isLookup() const;
    };

    explicit JniTable(JNIEnv* env);
    ~JniTable();
    JniTable(const JniTable&) = delete;
    JniTable& operator=(const JniTable&) = delete;

    /// The calls since the last `restart`.
    [[nodiscard]] const std::vector<Call>& calls() const { return calls_; }

    /// Forgets the calls and the planned failures. Buffers that are still out stay on the account.
    void restart();

    /// The call with this index in `calls` fails as in the JVM: a lookup with its error, any other call as if memory
    /// had run out, or the called Java code had thrown that.
    void failCall(std::size_t index) { failingCall_ = index; }

    /// The call of `function` with this index among those of the same function answers `object` instead.
    void answer(const char* function, std::size_t index, jobject object) { answering_ = {function, index, object}; }

    /// Whether the JVM raises no exception when memory runs out in this function.
    static bool failsSilently(std::string_view function);

    /// Puts something else that happens among the calls.
    void note(const char* event) { mustFail(event, {}, false); }

    /// What is wrong with the buffers: not given back, given back twice. Starts a new account.
    std::vector<std::string> takeComplaints();

    // For the table's own functions.
    bool mustFail(const char* function, std::string detail, bool canFail = true);
    jobject takeAnswer(std::string_view function);
    void taken(const char* chars);
    bool given(const char* chars);

  private:
    struct Answer {
        std::string_view function;
        std::size_t index = 0;
        jobject object = nullptr;
    };

    JNIEnv* env_;
    std::vector<Call> calls_;
    std::vector<const char*> out_;
    std::vector<std::string> complaints_;
    std::size_t failingCall_ = static_cast<std::size_t>(-1);
    Answer answering_;
};

/// The table of the current thread, or null.
JniTable* currentJniTable();

/// What the bridge has needed of the Java side in all tests so far, as it stands in the bridge's list: each
/// class, method and exception that it looked up and found.
const std::set<std::string>& recordedRequirements();
