// The mark is a shared lock on a file of the user's own, one file for each installation root. Whoever asks first takes
// the gate, so that of several starts at one moment each sees those before it, and then tries for the mark alone.
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

int openLockFile(const std::string& path) {
    return path.empty() ? -1 : open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600);
}

// Whether the mark could be had alone. It is held, alone or shared, in both cases.
bool takeMark(int mark) {
    bool alone = flock(mark, LOCK_EX | LOCK_NB) == 0;
    flock(mark, LOCK_SH);
    return alone;
}

// Announces, and answers whether nobody had before. Without a place for the mark nobody is known.
bool announceAlone(std::string_view root) {
    withdrawInstance();
    std::string path = markPath(root);
    int gate = path.empty() ? -1 : openLockFile(path + ".gate");
    flock(gate, LOCK_EX);
    state().mark = openLockFile(path);
    bool alone = state().mark < 0 || takeMark(state().mark);
    if (gate >= 0) close(gate);
    return alone;
}

} // namespace

bool anotherInstanceRuns(std::string_view root) {
    bool another = !announceAlone(root);
    if (another) withdrawInstance(); // a process that is about to give way counts for nobody
    return another || state().pretended;
}

void announceInstance(std::string_view root) {
    announceAlone(root);
}

void withdrawInstance() {
    if (state().mark >= 0) close(state().mark);
    state().mark = -1;
}

void pretendInstance(bool running) {
    state().pretended = running;
}

} // namespace kestrel::platform
