// What it costs to keep the row of a change on the disk between its DELETE and its INSERT: the note written and taken
// away again, against the statements of that change by the engine's own interface. On the disk and by the clock, since
// both do little but wait for it.
#include "data/modChangeNote.hpp"
#include "entry/modRosterRecords.hpp"
#include "platform/clock.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"
#include "text/characters.hpp"

#include <cstdio>

using namespace kestrel;

namespace {

constexpr int rounds = 41, changes = 5;
constexpr double limit = 1.0;

void showAddressee() {
    installation.sessionOffice = "001";
    rosterSession.番号基準日付 = "20250331";
    rosterSession.名簿No = "00000012";
    if (readAddressee("000003")) takeAddressee();
}

std::string insertAmong(const std::vector<bench::Sent>& statements) {
    for (const bench::Sent& sent : statements)
        if (!sent.local && sent.text.starts_with("INSERT INTO") && text::contains(sent.text, "宛先名称A"))
            return sent.text;
    return {};
}

template <class Work> double clocked(Work work) {
    const double begin = platform::secondsRunning();
    for (int change = 0; change < changes; ++change) work();
    return (platform::secondsRunning() - begin) * 1e6;
}

} // namespace

int main() {
    const bench::Installation place(setup::What::full, bench::Where::disk);
    bench::openOrEnd();
    showAddressee();
    const std::vector<bench::Sent> statements = bench::sentBy(replaceAddressee);
    const std::string insert = insertAmong(statements);
    if (insert.empty() || rosterSession.writeResult != 1) {
        std::fprintf(stderr, "the change stands still: %s\n", rosterSession.writeMessage.c_str());
        return 2;
    }
    bench::Replay replay(place);
    const auto ours = [&] { return clocked([&] { noteChange("T名簿明細", insert).remove(); }); };
    const auto theirs = [&] { return clocked([&] { replay.run(statements); }); };
    return bench::tell("note of a change, by the clock", bench::compare(rounds, changes, ours, theirs), limit);
}
