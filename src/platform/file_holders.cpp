#include "platform/file_holders.hpp"

#include "platform/paths.hpp"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace kestrel::platform {

namespace fs = std::filesystem;

namespace {

// The number that a folder of /proc is named after; 0 for the others.
int processNumber(const fs::path& folder) {
    const std::string name = folder.filename().string();
    int number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    return read.ptr == name.data() + name.size() ? number : 0;
}

// A folder that may not be read, or whose process has ended meanwhile, is an empty one.
fs::directory_iterator entriesOf(const fs::path& folder) {
    std::error_code ignored;
    fs::directory_iterator entries(folder, ignored);
    return ignored ? fs::directory_iterator() : entries;
}

std::string linkTarget(const fs::path& link) {
    std::error_code ignored;
    return fs::read_symlink(link, ignored).string();
}

bool holds(const fs::path& process, const std::string& file) {
    const fs::directory_iterator entries = entriesOf(process / "fd");
    return std::any_of(begin(entries), end(entries), [&](const auto& entry) { return linkTarget(entry) == file; });
}

std::string programOf(const fs::path& process) {
    const fs::path program = linkTarget(process / "exe");
    if (!program.empty()) return program.filename().string();
    std::ifstream words(process / "cmdline");
    std::string first;
    std::getline(words, first, '\0');
    return fs::path(first).filename().string();
}

} // namespace

std::vector<FileHolder> holdersOf(std::string_view path) {
    std::error_code ignored;
    const std::string file = fs::canonical(systemPath(path), ignored).string();
    std::vector<FileHolder> found;
    for (const auto& entry : entriesOf("/proc")) {
        const int number = processNumber(entry.path());
        if (number == 0 || number == getpid() || file.empty() || !holds(entry.path(), file)) continue;
        found.push_back({number, programOf(entry.path())});
    }
    std::ranges::sort(found, {}, &FileHolder::process);
    return found;
}

} // namespace kestrel::platform
