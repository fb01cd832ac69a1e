// A save of a changed addressee on a database server, from the press of btn_登録 to the cleared screen, against the
// same statements through the server's own library (and those of the local database through its engine's). The server
// writes as safely as in an office.
#include "session/modStart.hpp"
#include "support/both_times.hpp"
#include "support/save_screen.hpp"
#include "support/server.hpp"

#include <cstdio>
#include <cstring>

using namespace kestrel;

namespace {

constexpr int rounds = 31;
constexpr double limit = 1.3;

bench::Spent spentOnSaves(const bench::Meter& meter) {
    bench::Spent spent;
    bench::saveEach([&](const std::function<void()>& save) {
        const bench::Spent one = meter.spentOn(save);
        spent.clock += one.clock;
        spent.processor += one.processor;
    });
    return spent;
}

} // namespace

// With --statements the texts that the measuring goes by are written first.
int main(int count, char** arguments) {
    const bench::ServerDatabase database("save", setup::What::full);
    const bench::Installation place(setup::What::full, bench::Where::memory);
    bench::useServer(place, database.text);
    bench::answerSaves();
    startProgram("");
    bench::saveEach([](const std::function<void()>& save) { save(); });
    const std::vector<bench::Sent> statements = bench::statementsOfSaves();
    if (count > 1 && std::strcmp(arguments[1], "--statements") == 0)
        for (const bench::Sent& sent : statements) std::puts(sent.text.c_str());
    bench::ServerReplay replay(place, database.text);
    const bench::Meter oursMeter(bench::serverProcessOfProgram()), theirsMeter(replay.server.process());
    // What earlier saves left behind would be cleared away by whoever comes next.
    bench::Libpq cleaner(database.text);
    const auto ours = [&] {
        cleaner.run("VACUUM");
        return spentOnSaves(oursMeter);
    };
    const auto theirs = [&] {
        cleaner.run("VACUUM");
        return theirsMeter.spentOn([&] { replay.run(statements); });
    };
    const bench::BothTimes times = bench::compareBoth(rounds, bench::savedAddressees, ours, theirs);
    closeProgram();
    return bench::tell("save on a server, by the clock", times.clock, limit) |
           bench::tell("its processor time, here and there", times.processor, limit);
}
