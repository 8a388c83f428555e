#include "applianceFile.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

#include "json.h"

namespace {

namespace files = std::filesystem;

/// More is no appliance: the large one of the examples has 1 MiB.
constexpr off_t sizeLimit = 64 << 20;

/// As the environment names the file when the library is loaded; empty for none.
const files::path& givenName = *new files::path{[] {
    const char* name = std::getenv("TALVERN_APPLIANCE");
    if (name == nullptr || *name == '\0') return files::path{};
    std::error_code error;
    const files::path absolute = files::absolute(name, error);
    return error ? files::path{name} : absolute;
}()};

std::runtime_error failure(const std::string& file, const char* what, int error = errno) {
    return std::runtime_error{json::toModifiedUtf8(file) + ": " + what + ": " + std::strerror(error)};
}

/// The file itself, which need not exist, not a link to it, which the first change would replace.
std::string withoutLinks(files::path name) {
    try {
        for (int links = 0; links < 40 && files::is_symlink(files::symlink_status(name)); ++links) {
            name = name.parent_path() / files::read_symlink(name);
        }
        return files::weakly_canonical(name);
    } catch (const files::filesystem_error& problem) {
        throw failure(givenName, "can't be read", problem.code().value());
    }
}

const std::string& path() {
    static const std::string& path = *new std::string{withoutLinks(givenName)};
    return path;
}

/// Closes a file.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_{number} {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] int release() { return std::exchange(number_, -1); }

  private:
    int number_;
};

/// Gives a new file the owner and the mode of the appliance's, without which it is for this user alone. False
/// if that fails.
bool makeLikeAppliance(int file) {
    struct stat status {};
    if (::stat(path().c_str(), &status) != 0) return ::fchmod(file, S_IRUSR | S_IWUSR) == 0;
    // Only root can give a file to somebody else, and should: what it changes stays its owner's.
    if (::fchown(file, status.st_uid, status.st_gid) != 0 && errno != EPERM) return false;
    return ::fchmod(file, (status.st_mode & 0777) | S_IRUSR | S_IWUSR) == 0;
}

auto timeOf(const timespec& time) { return std::tie(time.tv_sec, time.tv_nsec); }

}  // namespace

const bool isKept = !givenName.empty();

FileLock::FileLock(Subject subject) {
    using std::chrono::milliseconds;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{30};
    for (std::chrono::microseconds pause{20}; !take(subject); pause = std::min(pause * 2, {milliseconds{2}})) {
        if (std::chrono::steady_clock::now() > end) {
            throw std::runtime_error{
                json::toModifiedUtf8(path()) + ".lock: has been locked by another process for 30 seconds"};
        }
        std::this_thread::sleep_for(pause);
    }
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_{std::exchange(other.descriptor_, -1)} {}

FileLock::~FileLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

FileLock FileLock::attempt(Subject subject) {
    FileLock lock;
    lock.take(subject);
    return lock;
}

bool FileLock::take(Subject subject) {
    const std::string file = path() + ".lock";
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW;
    int number = ::open(file.c_str(), flags);
    if (number < 0 && errno == ENOENT) {
        number = ::open(file.c_str(), flags | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
        if (number < 0 && errno == EEXIST) return false;
        if (number >= 0) makeLikeAppliance(number);
    }
    Descriptor lockFile{number};
    if (lockFile.number() < 0) throw failure(file, "can't be opened");
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = subject;
    range.l_len = 1;
    if (::fcntl(lockFile.number(), F_OFD_SETLK, &range) != 0) {
        if (errno != EAGAIN && errno != EACCES) throw failure(file, "can't be locked");
        return false;
    }
    // Somebody may have removed the file before it was locked; then others lock another one.
    struct stat locked {};
    struct stat present {};
    if (::fstat(lockFile.number(), &locked) != 0 || ::stat(file.c_str(), &present) != 0) return false;
    if (locked.st_ino != present.st_ino) return false;
    descriptor_ = lockFile.release();
    return true;
}

ApplianceFile& applianceFile() {
    static auto& file = *new ApplianceFile;
    return file;
}

std::runtime_error ApplianceFile::problem(std::string_view cause, int line) const {
    return std::runtime_error{
        json::toModifiedUtf8(path()) + (line > 0 ? ':' + std::to_string(line) : "") + ": " + std::string{cause}};
}

/// What is written into the file in place within the resolution of its times may leave them as they are, so
/// they say nothing if the last look was that early.
bool ApplianceFile::isSame(const struct stat& status) const {
    const auto identity = [](const struct stat& s) {
        return std::tuple{s.st_dev,          s.st_ino,         s.st_size,         s.st_mtim.tv_sec,
                          s.st_mtim.tv_nsec, s.st_ctim.tv_sec, s.st_ctim.tv_nsec, s.st_mode};
    };
    return isKnown_ && identity(status) == identity(status_) && timeOf(status.st_mtim) < timeOf(lookedAt_) &&
           timeOf(status.st_ctim) < timeOf(lookedAt_);
}

ApplianceFile::State ApplianceFile::look() {
    struct stat status {};
    if (::stat(path().c_str(), &status) != 0) {
        if (errno != ENOENT) throw failure(path(), "can't be read");
        isKnown_ = false;
        return State::missing;
    }
    if (isSame(status)) return State::same;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);  // the clock of the file's times
    const Descriptor file{::open(path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    if (file.number() < 0 && errno == ENOENT) return look();  // removed at this moment
    if (file.number() < 0 || ::fstat(file.number(), &status) != 0) throw failure(path(), "can't be read");
    if (!S_ISREG(status.st_mode)) throw problem("is no regular file");
    // Root may write everything: the file's own mode counts.
    if ((status.st_mode & S_IWUSR) == 0) throw problem("is read-only");
    if (::access(path().c_str(), W_OK) != 0) throw failure(path(), "can't be written");
    if (status.st_size > sizeLimit) throw problem("is too large");
    std::string found(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    ssize_t count = 0;
    do {
        if (length == found.size()) found.resize(length + 1);  // it has grown, or ends here
        count = ::read(file.number(), found.data() + length, found.size() - length);
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    } while (count > 0 || (count < 0 && errno == EINTR));
    if (count < 0) throw failure(path(), "can't be read");
    found.resize(length);
    const bool isSameText = isKnown_ && found == text_;
    text_ = std::move(found);
    status_ = status;
    lookedAt_ = now;
    isKnown_ = true;
    return isSameText ? State::same : State::changed;
}

void ApplianceFile::replace(std::string text) {
    isKnown_ = false;
    // Only the owner of the lock is here: a file of this name was left by a process that was killed.
    const std::string temporary = path() + ".new";
    ::unlink(temporary.c_str());
    Descriptor file{::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)};
    if (file.number() < 0) throw failure(temporary, "can't be created");
    const auto refuse = [&] {
        const int error = errno;
        ::unlink(temporary.c_str());
        errno = error;
        throw failure(path(), "can't be written");
    };
    if (!makeLikeAppliance(file.number())) refuse();
    for (std::string_view rest = text; !rest.empty();) {
        const ssize_t count = ::write(file.number(), rest.data(), rest.size());
        if (count < 0 && errno != EINTR) refuse();
        rest.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    ::clock_gettime(CLOCK_REALTIME_COARSE, &lookedAt_);
    if (::close(file.release()) != 0 || ::rename(temporary.c_str(), path().c_str()) != 0) refuse();
    text_ = std::move(text);
    isKnown_ = ::stat(path().c_str(), &status_) == 0;
}
