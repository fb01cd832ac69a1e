// kestrel-setup: makes and checks installations.
#include "platform/clock.hpp"
#include "platform/paths.hpp"
#include "setup/check.hpp"
#include "setup/installation.hpp"
#include "setup/pin.hpp"
#include "text/dates.hpp"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

namespace setup = kestrel::setup;
namespace platform = kestrel::platform;

constexpr const char* usage = "kestrel-setup create DIR [--minimal | --full] [--day YYYYMMDD]\n"
                              "kestrel-setup check DIR\n"
                              "kestrel-setup pin TEXT\n";

int refuse(const std::string& line) {
    std::cerr << line << "\n";
    return 1;
}

bool isDay(const std::string& day) {
    return day.size() == 8 && kestrel::text::dateText(kestrel::text::dateFromText(day)) == day;
}

// The program lies beside this one after a build; without it the installation can be filled later.
std::string programBeside() {
    const std::string path = platform::joinPath(platform::executableFolder(), "連絡台帳入力");
    return std::filesystem::is_regular_file(path) ? path : std::string();
}

int create(const std::vector<std::string>& arguments) {
    setup::What what = setup::What::full;
    std::string day = platform::dateText(platform::now());
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "--minimal") {
            what = setup::What::minimal;
        } else if (arguments[i] == "--day" && i + 1 < arguments.size()) {
            day = arguments[++i];
        } else if (arguments[i] != "--full") {
            return refuse("unknown option " + arguments[i] + "\n" + usage);
        }
    }
    if (!isDay(day)) return refuse("--day " + day + " is no date of the form YYYYMMDD");
    const std::string program = programBeside();
    if (program.empty()) std::cerr << "連絡台帳入力 is not beside kestrel-setup; prgbin gets a note in its place\n";
    const platform::Status status = setup::createInstallation(arguments[0], what, day, program);
    return status ? 0 : refuse(status.failure().description);
}

int check(const std::string& folder) {
    const std::vector<std::string> lines = setup::checkInstallation(folder);
    for (const std::string& line : lines) std::cout << line << "\n";
    if (lines.empty()) std::cout << folder << " is in order\n";
    return lines.empty() ? 0 : 1;
}

} // namespace

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments.size() < 2) return refuse(usage);
    const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
    if (arguments[0] == "create") return create(rest);
    if (arguments[0] == "check" && rest.size() == 1) return check(rest[0]);
    if (arguments[0] == "pin" && rest.size() == 1) return (std::cout << setup::storedPin(rest[0]) << "\n", 0);
    return refuse(usage);
}
