#include "platform/shell.hpp"

#include "platform/files.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"
#include "platform/process.hpp"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace kestrel::platform {

namespace {

constexpr int notFound = 2, nothingOpensIt = 31, started = 33;

Pretend& pretended() {
    static Pretend present = Pretend::off;
    return present;
}

bool exists(std::string_view path) {
    return fileExists(path) || folderExists(path);
}

// What the opener is given: the whole path of what is there, so that no name is taken for an option; anything else is
// an address and goes as it stands. Empty: a path to nothing, or an option of the opener.
std::string openable(std::string_view target) {
    if (exists(target)) return std::filesystem::absolute(systemPath(target)).string();
    return target.starts_with('/') || target.starts_with('-') ? std::string() : std::string(target);
}

std::string openerProgram() {
    std::string folders = environment("PATH");
    for (std::size_t begin = 0; begin < folders.size();) {
        auto end = std::min(folders.find(':', begin), folders.size());
        std::string program = folders.substr(begin, end - begin) + "/xdg-open";
        if (access(program.c_str(), X_OK) == 0) return program;
        begin = end + 1;
    }
    return {};
}

int openReally(std::string_view target, std::string_view workingFolder) {
    std::string what = openable(target);
    if (what.empty()) return notFound;
    std::string folder = folderExists(workingFolder) ? systemPath(workingFolder) : std::string();
    std::string opener = openerProgram();
    return !opener.empty() && launch(opener, {what}, folder) ? started : nothingOpensIt;
}

} // namespace

int openWithDesktop(std::string_view target, std::string_view workingFolder) {
    int code = pretended() == Pretend::all ? started : nothingOpensIt;
    if (pretended() == Pretend::off) code = openReally(target, workingFolder);
    if (code > 32) journal::record(journal::Channel::seen, "opened \"" + std::string(target) + "\"");
    return code;
}

void pretendShell(Pretend pretend) {
    pretended() = pretend;
}

} // namespace kestrel::platform
