#include "program.hpp"

#include "platform/clock.hpp"
#include "platform/identity.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"
#include "session/modStart.hpp"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace kestrel::bench {

namespace fs = std::filesystem;

static fs::path newFolder(Where where) {
    std::error_code ignored;
    const bool memory = where == Where::memory && fs::is_directory("/dev/shm", ignored);
    return (memory ? fs::path("/dev/shm") : fs::temp_directory_path()) /
           ("kestrel-bench-" + std::to_string(std::random_device()()));
}

Installation::Installation(setup::What what, Where where) : root(newFolder(where)) {
    const auto made = setup::createInstallation(root.string(), what, sampleDay);
    if (!made) {
        std::fprintf(stderr, "%s\n", made.failure().description.c_str());
        std::exit(2);
    }
    platform::setExecutableFolder((root / "prgbin").string());
    platform::setUserName("operator");
    platform::setComputerName("KESTREL");
    platform::standClock({2024, 5, 15, 9, 30, 0});
}

Installation::~Installation() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
}

void openOrEnd() {
    if (openProgram() && loadStartValues()) return;
    std::fprintf(stderr, "the databases can't be used\n");
    std::exit(2);
}

std::vector<Sent> sentBy(const std::function<void()>& action) {
    journal::start();
    action();
    journal::stop();
    std::vector<Sent> statements;
    for (const journal::Entry& entry : journal::entries()) {
        if (entry.channel == journal::Channel::engine)
            statements.back().text = entry.text;
        else if (entry.channel != journal::Channel::seen)
            statements.push_back({entry.channel == journal::Channel::sentLocal, entry.text});
    }
    return statements;
}

void Replay::run(const std::vector<Sent>& statements) {
    for (const Sent& sent : statements) (sent.local ? localDatabase : mainDatabase).run(sent.text);
}

} // namespace kestrel::bench
