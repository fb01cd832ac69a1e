// kestrel-setup: makes and checks installations.
#include "platform/clock.hpp"
#include "platform/paths.hpp"
#include "setup/arguments.hpp"
#include "setup/check.hpp"
#include "setup/example.hpp"
#include "setup/installation.hpp"
#include "setup/pin.hpp"
#include "setup/recover_command.hpp"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

namespace setup = kestrel::setup;
namespace platform = kestrel::platform;

constexpr const char* usage = "kestrel-setup create DIR [--minimal | --full] [--day YYYYMMDD]\n"
                              "kestrel-setup check DIR\n"
                              "kestrel-setup demo DIR\n"
                              "kestrel-setup recover DIR [--apply]\n"
                              "kestrel-setup pin TEXT";

int refuse(const std::string& line) {
    std::cerr << line << "\n";
    return 1;
}

// The program lies beside this one after a build; without it the installation can be filled later.
std::string programBeside() {
    const std::string path = platform::joinPath(platform::executableFolder(), "連絡台帳入力");
    return std::filesystem::is_regular_file(path) ? path : std::string();
}

int create(const std::vector<std::string>& words) {
    const auto request = setup::readCreateRequest(words, platform::dateText(platform::now()));
    if (!request) return refuse(usage);
    const std::string program = programBeside();
    const auto status = setup::createInstallation(request->folder, request->what, request->day, program);
    if (!status) return refuse(status.failure().description);
    if (program.empty()) std::cerr << "連絡台帳入力 is not beside kestrel-setup; prgbin holds a note in its place\n";
    return 0;
}

int check(const std::string& folder) {
    const std::vector<std::string> lines = setup::checkInstallation(folder);
    for (const std::string& line : lines) std::cout << line << "\n";
    if (lines.empty()) std::cout << folder << " is in order\n";
    return lines.empty() ? 0 : 1;
}

int demo(const std::string& folder) {
    const auto line = setup::exampleCommandLine(folder);
    if (!line) return refuse(line.failure().description);
    std::cout << line.value() << "\n";
    return 0;
}

int pin(const std::string& plain) {
    std::cout << setup::storedPin(plain) << "\n";
    return 0;
}

} // namespace

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments.size() < 2) return refuse(usage);
    const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
    if (arguments[0] == "create") return create(rest);
    if (arguments[0] == "check" && rest.size() == 1) return check(rest[0]);
    if (arguments[0] == "demo" && rest.size() == 1) return demo(rest[0]);
    if (arguments[0] == "recover") return setup::runRecover(rest, usage);
    if (arguments[0] == "pin" && rest.size() == 1) return pin(rest[0]);
    return refuse(usage);
}
