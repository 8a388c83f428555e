#pragma once

#include <ctime>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>

/// Whether the appliance is kept in a file, which the environment variable TALVERN_APPLIANCE names.
[[gnu::visibility("hidden")]] extern const bool isKept;

/// A lock on one byte of the file's lock file, NAME.lock: against other processes and against other owners in
/// this one. It ends with the owner or the process, whichever ends first.
class FileLock {
  public:
    enum Subject : int { state = 0, upgrade = 1 };

    /// Waits until nobody else has the lock.
    /// @throws std::runtime_error  somebody had it all the time, or it can't be taken
    explicit FileLock(Subject subject);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock();

    /// Owns the lock, unless somebody else has it.
    static FileLock attempt(Subject subject);
    [[nodiscard]] bool isOwner() const { return descriptor_ >= 0; }

  private:
    FileLock() = default;
    bool take(Subject subject);

    int descriptor_ = -1;
};

/// The file, used by one thread at a time. Every failure is a std::runtime_error that names it.
class ApplianceFile {
  public:
    enum class State { same, changed, missing };

    /// Compares the file with `text`, which becomes what the file holds.
    State look();
    [[nodiscard]] const std::string& text() const { return text_; }

    /// Replaces the file. Whoever reads it sees the old text or the new one, whenever this process is killed.
    void replace(std::string text);

    /// Takes the next look for a change.
    void forget() { isKnown_ = false; }

    [[nodiscard]] std::runtime_error problem(std::string_view cause, int line = 0) const;

  private:
    void noteKnown(const struct stat& status);
    [[nodiscard]] bool isSame(const struct stat& status) const;

    std::string text_;
    bool isKnown_ = false;  // the other members say what was found
    struct stat status_ {};
    timespec lookedAt_{};
};

/// Never destroyed.
ApplianceFile& applianceFile();
