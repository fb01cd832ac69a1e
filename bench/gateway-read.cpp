// A roster read by its key through the gateway, with its line of the run history, against the engine's own interface
// running the rewritten text and the same line.
#include "data/modGateway.hpp"
#include "entry/modRosterRecords.hpp"
#include "session/rosterSession.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

using namespace kestrel;

namespace {

constexpr int rounds = 41, steps = 200;
constexpr double limit = 1.5;

bool found = true;

void read() {
    found = readRosterHeader("001", "20250331", "00000012") && found;
    rosterSession.rosterRecords.close();
}

} // namespace

int main() {
    const bench::Installation installation(setup::What::full, bench::Where::memory);
    bench::openOrEnd();
    bench::Replay replay(installation);
    const std::vector<bench::Sent> statements = bench::sentBy(read);
    const auto ours = [] {
        return bench::spentOn([] {
            for (int i = 0; i < steps; ++i) read();
        });
    };
    const auto theirs = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < steps; ++i) replay.run(statements);
        });
    };
    const bench::Comparison comparison = bench::compare(rounds, steps, ours, theirs);
    if (statements.size() != 2 || !found) return 2;
    return bench::tell("roster read by key, with its history line", comparison, limit);
}
