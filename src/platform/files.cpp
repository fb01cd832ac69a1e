#include "platform/files.hpp"

#include "platform/paths.hpp"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestrel::platform {

namespace {

struct File {
    int number;
    explicit File(int opened) : number(opened) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (number >= 0) close(number);
    }
};

Failure lastFailure() {
    return Failure{errno, std::strerror(errno)};
}

bool look(std::string_view path, struct stat& about) {
    return stat(systemPath(path).c_str(), &about) == 0;
}

bool writeAll(int file, std::string_view data) {
    while (!data.empty()) {
        ssize_t written = write(file, data.data(), data.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The system copies by itself what it can; what it leaves, down to the reason why, the loop behind it finds.
bool copyContent(int source, int target) {
    constexpr std::size_t portion = std::size_t{1} << 30;
    while (copy_file_range(source, nullptr, target, nullptr, portion, 0) > 0) {
    }
    std::array<char, 65536> block{};
    for (;;) {
        ssize_t length = read(source, block.data(), block.size());
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) return length == 0;
        if (!writeAll(target, {block.data(), static_cast<std::size_t>(length)})) return false;
    }
}

bool keepTimes(int target, const struct stat& about) {
    const std::array<timespec, 2> times{about.st_atim, about.st_mtim};
    return futimens(target, times.data()) == 0;
}

// Where the content goes when the target is a link.
std::string linkedPath(const std::string& path) {
    char* real = realpath(path.c_str(), nullptr);
    std::string target = real ? real : path;
    std::free(real);
    return target;
}

// What speaks against the target, decided before the first byte is written.
Status admitTarget(const std::string& target) {
    struct stat about {};
    if (!look(target, about)) return done();
    if (S_ISDIR(about.st_mode)) return Failure{EISDIR, std::strerror(EISDIR)};
    if (access(target.c_str(), W_OK) != 0) return lastFailure();
    return done();
}

// Beside the target, then in its place: a copy that fails leaves what was there.
Status copyInto(int source, const struct stat& about, const std::string& target) {
    std::string part = target + ".part" + std::to_string(getpid());
    File copy(open(part.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, (about.st_mode & 0777) | S_IRUSR | S_IWUSR));
    if (copy.number < 0) return lastFailure();
    if (copyContent(source, copy.number) && keepTimes(copy.number, about) &&
        std::rename(part.c_str(), target.c_str()) == 0)
        return done();
    Failure failure = lastFailure();
    std::remove(part.c_str());
    return failure;
}

// Where the file system knows no locks nobody can be told to hold a file; what is written there is as safe.
bool takeLock(int file) {
    return flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// Whoever found the new file before it was held may have taken it for left behind, and away.
bool isStillThere(int file) {
    struct stat about {};
    return fstat(file, &about) == 0 && about.st_nlink > 0;
}

// A new name is on the disk only when its folder is. Some file systems see to that themselves and refuse to be asked.
bool syncFolderOf(const std::string& path) {
    const auto end = lastSeparator(path);
    const std::string folder = end == std::string::npos ? "." : path.substr(0, end + 1);
    const File opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.number >= 0 && (fsync(opened.number) == 0 || errno == EINVAL);
}

// Some file systems lock only what is open for writing.
int openForHolding(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
    return file >= 0 ? file : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

} // namespace

Result<Entry> entryAt(std::string_view path) {
    struct stat about {};
    if (!look(path, about)) return lastFailure();
    return Entry{S_ISDIR(about.st_mode), static_cast<std::uint64_t>(about.st_size), momentOf(about.st_mtim.tv_sec)};
}

bool fileExists(std::string_view path) {
    struct stat about {};
    return look(path, about) && !S_ISDIR(about.st_mode);
}

bool folderExists(std::string_view path) {
    struct stat about {};
    return look(path, about) && S_ISDIR(about.st_mode);
}

Status copyFile(std::string_view source, std::string_view target) {
    File original(open(systemPath(source).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat about {};
    if (original.number < 0 || fstat(original.number, &about) != 0) return lastFailure();
    if (S_ISDIR(about.st_mode)) return Failure{EISDIR, std::strerror(EISDIR)};
    if (!S_ISREG(about.st_mode)) return Failure{EINVAL, std::strerror(EINVAL)};
    std::string place = linkedPath(systemPath(target));
    if (auto admitted = admitTarget(place); !admitted) return admitted;
    return copyInto(original.number, about, place);
}

Status makeFolder(std::string_view path) {
    if (mkdir(systemPath(path).c_str(), 0777) == 0) return done();
    Failure failure = lastFailure();
    return failure.number == EEXIST && folderExists(path) ? done() : Status(failure);
}

Status removeFile(std::string_view path) {
    return unlink(systemPath(path).c_str()) == 0 ? done() : Status(lastFailure());
}

Result<std::string> contentOf(std::string_view path) {
    const File file(open(systemPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number < 0) return lastFailure();
    std::string content;
    std::array<char, 4096> block{};
    for (;;) {
        ssize_t length = read(file.number, block.data(), block.size());
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) return lastFailure();
        if (length == 0) return content;
        content.append(block.data(), static_cast<std::size_t>(length));
    }
}

HeldFile::HeldFile(HeldFile&& other) noexcept
    : place(std::move(other.place)), number(std::exchange(other.number, -1)) {}

HeldFile& HeldFile::operator=(HeldFile&& other) noexcept {
    std::swap(place, other.place);
    std::swap(number, other.number);
    return *this;
}

HeldFile::~HeldFile() {
    if (number >= 0) close(number);
}

void HeldFile::remove() {
    if (number < 0) return;
    unlink(place.c_str());
    close(std::exchange(number, -1));
}

Result<HeldFile> writeHeldFile(std::string_view path, std::string_view content) {
    const std::string place = systemPath(path);
    const int file = open(place.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
    if (file < 0) return lastFailure();
    HeldFile held(place, file);
    if (!takeLock(file) || !isStillThere(file)) return Failure{EEXIST, std::strerror(EEXIST)};
    if (writeAll(file, content) && fsync(file) == 0 && syncFolderOf(place)) return held;
    Failure failure = lastFailure();
    held.remove();
    return failure;
}

Result<HeldFile> holdFile(std::string_view path) {
    const std::string place = systemPath(path);
    const int file = openForHolding(place);
    if (file < 0) return lastFailure();
    HeldFile held(place, file);
    if (!takeLock(file)) return Failure{EWOULDBLOCK, std::strerror(EWOULDBLOCK)};
    return held;
}

} // namespace kestrel::platform
