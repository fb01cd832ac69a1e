// Whole folders: listing, copying, removing.
#include "platform/files.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace kestrel::platform {

namespace fs = std::filesystem;

namespace {

Failure failureOf(int number) {
    return Failure{number, std::strerror(number)};
}

Status statusOf(const std::error_code& error) {
    return error ? Status(failureOf(error.value())) : done();
}

// Runs the step on each entry; the first failure ends it. The list is whole before the first step, which may add to the
// folder or take from it.
template <class Step> Status eachEntry(const fs::path& folder, Step step) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    if (error) return statusOf(error);
    for (const fs::path& entry : entries)
        if (Status status = step(entry); !status) return status;
    return done();
}

bool liesWithin(const fs::path& inner, const fs::path& outer) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(inner, error), root = fs::weakly_canonical(outer, error);
    return std::mismatch(root.begin(), root.end(), whole.begin(), whole.end()).first == root.end();
}

Status keepTimes(const fs::path& source, const fs::path& target) {
    struct stat about {};
    if (stat(source.c_str(), &about) != 0) return failureOf(errno);
    const std::array<timespec, 2> times{about.st_atim, about.st_mtim};
    return utimensat(AT_FDCWD, target.c_str(), times.data(), 0) == 0 ? done() : Status(failureOf(errno));
}

// above: the real places of the folders that are being copied. A link that leads back to one of them would never end.
Status copyTree(const fs::path& source, const fs::path& target, std::vector<fs::path>& above) {
    std::error_code error;
    const fs::path place = fs::canonical(source, error);
    if (error) return statusOf(error);
    if (std::ranges::find(above, place) != above.end()) return failureOf(ELOOP);
    if (Status made = makeFolder(target.string()); !made) return made;
    above.push_back(place);
    Status copied = eachEntry(source, [&](const fs::path& entry) {
        const fs::path copy = target / entry.filename();
        return folderExists(entry.string()) ? copyTree(entry, copy, above) : copyFile(entry.string(), copy.string());
    });
    above.pop_back();
    return copied ? keepTimes(source, target) : copied;
}

Status removeTree(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error))) {
        fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, error);
        if (Status emptied = eachEntry(path, removeTree); !emptied) return emptied;
    }
    fs::remove(path, error);
    return statusOf(error);
}

} // namespace

Result<std::vector<std::string>> filesIn(std::string_view folder) {
    std::vector<std::string> names;
    const Status listed = eachEntry(systemPath(folder), [&](const fs::path& entry) {
        if (!folderExists(entry.string())) names.push_back(entry.filename().string());
        return done();
    });
    if (!listed) return listed.failure();
    return names;
}

Status copyFolder(std::string_view source, std::string_view target) {
    const fs::path from = systemPath(source), to = systemPath(target);
    if (!folderExists(source)) return failureOf(fileExists(source) ? ENOTDIR : ENOENT);
    if (liesWithin(to, from)) return failureOf(EINVAL);
    std::error_code error;
    const bool wasThere = fs::exists(fs::symlink_status(to, error));
    std::vector<fs::path> above;
    Status copied = copyTree(from, to, above);
    // The removing can fail like the copying did; what went wrong first is what counts.
    if (!copied && !wasThere) static_cast<void>(removeTree(to));
    return copied;
}

Status removeFolder(std::string_view path) {
    if (!folderExists(path)) return failureOf(fileExists(path) ? ENOTDIR : ENOENT);
    return removeTree(systemPath(path));
}

} // namespace kestrel::platform
