#include "platform/files.hpp"

#include "platform/paths.hpp"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

bool writeAll(int file, const char* data, ssize_t length) {
    while (length > 0) {
        ssize_t written = write(file, data, static_cast<std::size_t>(length));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        data += written;
        length -= written;
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
        if (!writeAll(target, block.data(), length)) return false;
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

} // namespace kestrel::platform
