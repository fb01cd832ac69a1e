// A save of a changed addressee, from the press of btn_登録 to the cleared screen, against the same statements through
// the engine's own interface.
#include "session/modStart.hpp"
#include "support/measure.hpp"
#include "support/save_screen.hpp"

#include <cstdio>
#include <cstring>

using namespace kestrel;

namespace {

constexpr int rounds = 41;
constexpr double limit = 1.3;

double timeOfSaves() {
    double spent = 0;
    bench::saveEach([&](const std::function<void()>& save) { spent += bench::spentOn(save); });
    return spent;
}

} // namespace

// With --statements the texts that the measuring goes by are written first.
int main(int count, char** arguments) {
    const bench::Installation place(setup::What::full, bench::Where::memory);
    bench::answerSaves();
    startProgram("");
    timeOfSaves(); // what a first save of theirs adds to the telephone directory is a change from now on
    const std::vector<bench::Sent> statements = bench::statementsOfSaves();
    if (count > 1 && std::strcmp(arguments[1], "--statements") == 0)
        for (const bench::Sent& sent : statements) std::puts(sent.text.c_str());
    bench::Replay replay(place);
    const auto theirs = [&] { return bench::spentOn([&] { replay.run(statements); }); };
    const bench::Comparison comparison = bench::compare(rounds, bench::savedAddressees, timeOfSaves, theirs);
    return bench::tell("save of a changed addressee", comparison, limit);
}
