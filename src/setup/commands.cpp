#include "setup/commands.hpp"

#include "platform/clock.hpp"
#include "platform/paths.hpp"
#include "setup/arguments.hpp"
#include "setup/check.hpp"
#include "setup/create.hpp"
#include "setup/example.hpp"
#include "setup/move.hpp"
#include "setup/pin.hpp"
#include "setup/recover_command.hpp"

#include <filesystem>
#include <string_view>

namespace kestrel::setup {

namespace {

using Arguments = std::vector<std::string>;

constexpr const char* usage =
    "kestrel-setup create DIR [--minimal | --full] [--day YYYYMMDD] [--main TEXT [--kind A|S|O]]\n"
    "kestrel-setup move DIR --main TEXT [--kind A|S|O] [--leave-unknown]\n"
    "kestrel-setup check DIR\n"
    "kestrel-setup demo DIR\n"
    "kestrel-setup recover DIR [--apply]\n"
    "kestrel-setup pin TEXT";

struct Streams {
    std::ostream& out;
    std::ostream& complaints;
};

int refuse(const Streams& streams, const std::string& line) {
    streams.complaints << line << std::endl;
    return 1;
}

// The program lies beside this one after a build; without it the installation can be filled later.
std::string programBeside() {
    const std::string path = platform::joinPath(platform::executableFolder(), "連絡台帳入力");
    return std::filesystem::is_regular_file(path) ? path : std::string();
}

int runCreate(const Arguments& words, const Streams& streams) {
    const auto request = readCreateRequest(words, platform::dateText(platform::now()));
    if (!request) return refuse(streams, usage);
    const std::string program = programBeside();
    const auto status = create(*request, program, streams.out);
    if (!status) return refuse(streams, status.failure().description);
    if (program.empty())
        streams.complaints << "連絡台帳入力 is not beside kestrel-setup; prgbin holds a note in its place" << std::endl;
    return 0;
}

int runMove(const Arguments& words, const Streams& streams) {
    const auto request = readMoveRequest(words);
    if (!request) return refuse(streams, usage);
    const auto status = moveMainDatabase(*request, streams.out);
    return status ? 0 : refuse(streams, status.failure().description);
}

int runCheck(const Arguments& words, const Streams& streams) {
    if (words.size() != 1) return refuse(streams, usage);
    const std::vector<std::string> lines = checkInstallation(words[0]);
    for (const std::string& line : lines) streams.out << line << std::endl;
    if (lines.empty()) streams.out << words[0] << " is in order" << std::endl;
    return lines.empty() ? 0 : 1;
}

int runDemo(const Arguments& words, const Streams& streams) {
    if (words.size() != 1) return refuse(streams, usage);
    const auto line = exampleCommandLine(words[0]);
    if (!line) return refuse(streams, line.failure().description);
    streams.out << line.value() << std::endl;
    return 0;
}

int runPin(const Arguments& words, const Streams& streams) {
    if (words.size() != 1) return refuse(streams, usage);
    streams.out << storedPin(words[0]) << std::endl;
    return 0;
}

int runRecover(const Arguments& words, const Streams& streams) {
    const auto request = readRecoverRequest(words);
    if (!request) return refuse(streams, usage);
    return showRecovery(recover(request->folder, request->apply), streams.out, streams.complaints);
}

struct Command {
    std::string_view name;
    int (*run)(const Arguments& words, const Streams& streams); // words: what stands behind the name
};
constexpr Command commands[] = {{"create", runCreate}, {"move", runMove},       {"check", runCheck},
                                {"demo", runDemo},     {"recover", runRecover}, {"pin", runPin}};

} // namespace

int runCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& complaints) {
    const Streams streams{out, complaints};
    for (const Command& command : commands) {
        if (!words.empty() && command.name == words[0]) return command.run({words.begin() + 1, words.end()}, streams);
    }
    return refuse(streams, usage);
}

} // namespace kestrel::setup
