// A roster read by its key through the gateway, with its line of the run history, against the engine's own interface
// running the rewritten text and the same line: each time another roster, and the same one again.
#include "entry/modRosterRecords.hpp"
#include "session/rosterSession.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

#include <cstdio>
#include <cstdlib>

using namespace kestrel;

namespace {

constexpr int rounds = 41, steps = 200;
constexpr int rosters = 50; // more than the connection keeps compiled reads for
constexpr double limit = 1.5;

std::string rosterNo(int roster) {
    return std::to_string(90000000 + roster);
}

void fill(const bench::Installation& place) {
    bench::RawDatabase database(place.mainFile());
    for (int roster = 0; roster < rosters; ++roster)
        database.run("INSERT INTO T名簿 (事業所コード, 番号基準日付, 名簿No, 名簿日付, 担当者コード, 部門コード, "
                     "セクションコード, 名簿名称, 発送日付) VALUES ('001', '20250331', '" +
                     rosterNo(roster) + "', '20240410', '00001', '001', '001', '春の案内', '20240420')");
}

void read(int roster) {
    if (!readRosterHeader("001", "20250331", rosterNo(roster))) {
        std::fprintf(stderr, "the roster isn't found\n");
        std::exit(2);
    }
    rosterSession.rosterRecords.close();
}

int measure(const bench::Installation& place, const std::string& what, int different) {
    bench::Replay replay(place);
    std::vector<std::vector<bench::Sent>> statements;
    for (int roster = 0; roster < different; ++roster) statements.push_back(bench::sentBy([roster] { read(roster); }));
    const auto ours = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < steps; ++i) read(i % different);
        });
    };
    const auto theirs = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < steps; ++i) replay.run(statements[static_cast<std::size_t>(i % different)]);
        });
    };
    return bench::tell(what, bench::compare(rounds, steps, ours, theirs), limit);
}

} // namespace

int main() {
    const bench::Installation place(setup::What::full, bench::Where::memory);
    fill(place);
    bench::openOrEnd();
    const int others = measure(place, "roster read by key with its history line", rosters);
    const int same = measure(place, "  the same roster again", 1);
    return others | same;
}
