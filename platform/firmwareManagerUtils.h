#pragma once

#include <cstdint>
#include <string>

/// What a firmware upgrade is doing. The numbers are the ordinals of the Java enum `UpgradeCode`; a report
/// with any other number is dropped.
enum class FwUpgradeCode : std::int32_t {
    verifying = 0,
    unpacking = 1,
    writing = 2,
    finished = 3,
    failed = 4,
};

/// The appliance's firmware: the one that runs and the one that ran before.
/// Texts are modified UTF-8. Every operation may be called from any thread, and may throw.
namespace talvern::firmwareManagerUtils {

/// What the platform reports an upgrade's progress to. The order of the virtual functions is part of the
/// interface.
class UpgradeCallback {
  public:
    virtual ~UpgradeCallback() = default;

    /// Says that `done` of `total` is done and what is being done; Java receives all three.
    /// May be called from any thread, the caller's of `upgrade` included, and from several at a time; must
    /// not be called with a lock held that an operation of this namespace needs, since the Java code that it
    /// runs may call these. Throws nothing. A thread that Java does not know is made known to it by its first
    /// call, and stays so until it ends.
    /// Does nothing once the JVM or the process has begun to end, so that destructors of static objects may
    /// wait for the threads that report. The JVM's end waits up to five seconds for reports under way. A
    /// thread whose Java callback takes longer never comes back: nor, if the JVM has no tool interface
    /// (JVMTI) to announce its end, does one that is in a report then. A Java callback that ends the JVM
    /// itself, by `System.exit`, ends it on the thread that reports: the destructors run there, and cannot
    /// wait for that thread.
    virtual void progress(int done, int total, FwUpgradeCode code) = 0;
};

/// Whether the running firmware is signed with the release keys.
bool isReleaseKeyed();

/// Goes back to the previous firmware. Returns a status: 0 for success.
std::int32_t rollback();

/// Deletes the previous firmware. What it returns is passed on to Java; so is that of the next two.
std::int32_t deletePrevious();

/// Writes the firmware again from the image of this name.
std::int32_t reflash(const std::string& image);

/// Installs the image of this name, one upgrade at a time. It may go on after the return. The two flags are
/// Java's, in the same order: `force` installs an image that is not release-keyed, `keepPrevious` keeps the
/// firmware that runs now for a rollback.
/// `callback` may be null. It lives until the process ends, and is the same object at every call.
std::int32_t upgrade(const std::string& image, bool force, bool keepPrevious, UpgradeCallback* callback);

}  // namespace talvern::firmwareManagerUtils
