#include "data/modFiles.hpp"

#include "platform/files.hpp"
#include "platform/paths.hpp"
#include "platform/shell.hpp"
#include "screen/message.hpp"
#include "text/characters.hpp"

#include <stdexcept>

namespace kestrel {

namespace {

constexpr const char* separators = "/\\";
constexpr std::size_t nowhere = std::string_view::npos;

// Where the network form begins, its two separators; nowhere when the path has another form.
std::size_t networkMark(std::string_view path) {
    return text::startsWith(path, "//") ? 0 : path.find("\\\\");
}

// Behind server and share, whose folders nobody makes; the end when one of the two is missing.
std::size_t behindShare(std::string_view path, std::size_t mark) {
    std::size_t from = mark + 2;
    for (int skipped = 0; skipped < 2; ++skipped) {
        const std::size_t separator = path.find_first_of(separators, from);
        if (separator == nowhere) return path.size();
        from = separator + 1;
    }
    return from;
}

// Where the folders to be made begin; nowhere for a path of neither form.
std::size_t firstFolder(std::string_view path) {
    if (const std::size_t mark = networkMark(path); mark != nowhere) return behindShare(path, mark);
    if (text::startsWith(path, "/")) return 1;
    const std::size_t drive = path.find(":\\");
    return drive == nowhere ? nowhere : drive + 2;
}

// The closing line is the result of the folder test, which is empty for what isn't there.
void reportFolder(const platform::Failure& failure, std::string_view path, std::string_view folder) {
    screen::message("DIREXISTCHK ERROR" + std::to_string(failure.number) + " " + failure.description +
                    "\rdirexeistchk\r" + std::string(path) + "\r" + std::string(folder) + "\r");
}

} // namespace

bool fileExists(std::string_view path) {
    return platform::fileExists(path);
}

bool folderExists(std::string_view path) {
    return platform::folderExists(path);
}

bool copyFile(std::string_view source, std::string_view target) {
    return static_cast<bool>(platform::copyFile(source, target));
}

bool copyFolder(std::string_view source, std::string_view target) {
    return static_cast<bool>(platform::copyFolder(source, target));
}

bool deleteFolder(std::string_view path) {
    return static_cast<bool>(platform::removeFolder(path));
}

void makeFolderPath(std::string_view path) {
    if (text::trim(path).empty()) return;
    const std::size_t begin = firstFolder(path);
    if (begin == nowhere) return;
    for (std::size_t end = path.find_first_of(separators, begin); end != nowhere;
         end = path.find_first_of(separators, end + 1)) {
        const std::string_view folder = path.substr(0, end);
        if (folderExists(folder)) continue;
        if (const auto made = platform::makeFolder(folder); !made) reportFolder(made.failure(), path, folder);
    }
}

bool isNetworkPath(std::string_view path) {
    return networkMark(path) != nowhere;
}

std::string_view nameInFolder(std::string_view path) {
    const std::size_t separator = platform::lastSeparator(path);
    return separator == nowhere ? path : path.substr(separator + 1);
}

std::string fileBaseName(std::string_view path) {
    if (text::trim(path).empty()) return "";
    const auto entry = platform::entryAt(path);
    if (!entry) throw std::runtime_error(entry.failure().description);
    if (entry.value().folder) return std::string(nameInFolder(path));
    const std::string listed = text::trim(path);
    if (!fileExists(listed)) return "";
    const std::string_view name = nameInFolder(listed);
    return std::string(name.substr(0, name.rfind('.')));
}

int openWithShell(std::string_view path) {
    const std::size_t separator = platform::lastSeparator(path);
    return platform::openWithDesktop(path, path.substr(0, separator == nowhere ? 0 : separator));
}

} // namespace kestrel
