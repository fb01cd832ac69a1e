#include "platform/process.hpp"

#include "platform/journal.hpp"
#include "platform/paths.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::platform {

namespace {

Pretend& pretended() {
    static Pretend present = Pretend::off;
    return present;
}

Failure failureOf(int number) {
    return Failure{number, std::strerror(number)};
}

std::vector<char*> argumentList(const std::string& file, const std::vector<std::string>& arguments) {
    std::vector<char*> list{const_cast<char*>(file.c_str())};
    for (const std::string& argument : arguments) list.push_back(const_cast<char*>(argument.c_str()));
    list.push_back(nullptr);
    return list;
}

// In the new process: becomes the program, or writes why not. The pipe closes by itself when the program runs.
[[noreturn]] void become(char* const* arguments, const char* folder, int pipe) {
    if (*folder && chdir(folder) != 0) { // a folder that is gone is no reason not to start
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execv(arguments[0], arguments);
    int number = errno;
    if (write(pipe, &number, sizeof number) != sizeof number) _exit(126);
    _exit(127);
}

// The child leaves at once and is waited for; the program is its orphan, so that no zombie is left behind.
[[noreturn]] void startOrphan(char* const* arguments, const char* folder, int pipe) {
    setsid();
    pid_t program = fork();
    if (program == 0) become(arguments, folder, pipe);
    int number = errno;
    bool told = program > 0 || write(pipe, &number, sizeof number) == sizeof number;
    _exit(told ? 0 : 126);
}

int readNumber(int pipe) {
    int number = 0;
    ssize_t length = 0;
    do length = read(pipe, &number, sizeof number);
    while (length < 0 && errno == EINTR);
    return length == sizeof number ? number : 0;
}

void waitFor(pid_t child) {
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace

Status launch(const std::string& file, const std::vector<std::string>& arguments, const std::string& workingFolder) {
    auto list = argumentList(file, arguments);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return failureOf(errno);
    pid_t child = fork();
    if (child == 0) startOrphan(list.data(), workingFolder.c_str(), ends[1]);
    int number = child < 0 ? errno : 0;
    close(ends[1]);
    if (child > 0) {
        number = readNumber(ends[0]);
        waitFor(child);
    }
    close(ends[0]);
    return number == 0 ? done() : Status(failureOf(number));
}

Status startProgram(std::string_view file, std::string_view argument) {
    std::vector<std::string> arguments;
    if (!argument.empty()) arguments.emplace_back(argument);
    Status started = done();
    if (pretended() == Pretend::none) started = failureOf(ENOENT);
    if (pretended() == Pretend::off) started = launch(systemPath(file), arguments, "");
    if (!started) return started;
    std::string line(file);
    if (!argument.empty()) line.append(" ").append(argument);
    journal::record(journal::Channel::seen, "started \"" + line + "\"");
    return started;
}

void pretendPrograms(Pretend pretend) {
    pretended() = pretend;
}

std::string environment(std::string_view name) {
    const char* value = std::getenv(std::string(name).c_str());
    return value ? value : "";
}

void setEnvironment(std::string_view name, std::string_view value) {
    setenv(std::string(name).c_str(), std::string(value).c_str(), 1);
}

} // namespace kestrel::platform
