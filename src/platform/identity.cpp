#include "platform/identity.hpp"

#include "platform/process.hpp"

#include <array>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace kestrel::platform {

namespace {

struct Pretended {
    std::string user, computer;
};

Pretended& pretended() {
    static Pretended names;
    return names;
}

std::string nameInPasswordDatabase() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found && found->pw_name ? found->pw_name : "";
}

std::string systemUserName() {
    std::string name = nameInPasswordDatabase();
    for (const char* variable : {"LOGNAME", "USER"})
        if (name.empty()) name = environment(variable);
    return name.empty() ? std::to_string(getuid()) : name;
}

std::string systemComputerName() {
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

} // namespace

std::string userName() {
    return pretended().user.empty() ? systemUserName() : pretended().user;
}

std::string computerName() {
    return pretended().computer.empty() ? systemComputerName() : pretended().computer;
}

int processNumber() {
    return getpid();
}

int windowsVersionClass() {
    return -1;
}

void setUserName(std::string name) {
    pretended().user = std::move(name);
}

void setComputerName(std::string name) {
    pretended().computer = std::move(name);
}

} // namespace kestrel::platform
