// Two files of the user's own for each installation root. A plain start takes the first for itself alone; starts that
// are exempt from the rule share the second. The locks are the kernel's, so each step is taken whole or not at all.
#include "platform/instances.hpp"

#include "platform/paths.hpp"

#include <array>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrel::platform {

namespace {

struct State {
    int mark = -1; // the open file whose lock announces this process
    bool pretended = false;
};

State& state() {
    static State present;
    return present;
}

bool isOwnFolder(const std::string& path) {
    struct stat about {};
    return lstat(path.c_str(), &about) == 0 && S_ISDIR(about.st_mode) && about.st_uid == getuid();
}

// The same for every process of the user, whatever its environment says.
std::string userFolder() {
    std::string user = std::to_string(getuid());
    if (std::string session = "/run/user/" + user; isOwnFolder(session)) return session;
    std::string folder = "/tmp/kestrel-" + user;
    mkdir(folder.c_str(), 0700);
    return isOwnFolder(folder) ? folder : std::string();
}

std::string hashText(std::string_view text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
    return digits.data();
}

std::string markPath(std::string_view root) {
    std::string folder = userFolder();
    if (folder.empty()) return {};
    std::error_code error;
    auto real = std::filesystem::weakly_canonical(systemPath(root), error).string();
    return folder + "/kestrel-" + hashText(error ? std::string(root) : real);
}

std::string exemptPath(const std::string& path) {
    return path.empty() ? path : path + ".exempt";
}

int openLockFile(const std::string& path) {
    return path.empty() ? -1 : open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600);
}

// Only one can have it; whoever asks second is told so at once.
bool takeFirstPlace(const std::string& path) {
    state().mark = openLockFile(path);
    return state().mark < 0 || flock(state().mark, LOCK_EX | LOCK_NB) == 0; // without a place for it nobody is known
}

bool hasExemptInstances(const std::string& path) {
    int file = openLockFile(path);
    bool held = file >= 0 && flock(file, LOCK_EX | LOCK_NB) != 0;
    if (file >= 0) close(file);
    return held;
}

} // namespace

bool anotherInstanceRuns(std::string_view root) {
    withdrawInstance();
    std::string path = markPath(root);
    bool another = !takeFirstPlace(path) || hasExemptInstances(exemptPath(path));
    if (another) withdrawInstance(); // a process that is about to give way counts for nobody
    return another || state().pretended;
}

void announceInstance(std::string_view root) {
    withdrawInstance();
    state().mark = openLockFile(exemptPath(markPath(root)));
    if (state().mark >= 0) flock(state().mark, LOCK_SH);
}

void withdrawInstance() {
    if (state().mark >= 0) close(state().mark);
    state().mark = -1;
}

void forgetInstances(std::string_view root) {
    const std::string path = markPath(root);
    if (path.empty()) return;
    unlink(path.c_str());
    unlink(exemptPath(path).c_str());
}

void pretendInstance(bool running) {
    state().pretended = running;
}

} // namespace kestrel::platform
