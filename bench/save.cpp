// A save of a changed addressee, from the press of btn_登録 to the cleared screen, against the same statements through
// the engine's own interface. The question is answered at once. One addressee after the other is saved, so that what
// differs between them is compiled anew as in a day's work.
#include "entry/frm連絡台帳入力.hpp"
#include "screen/acts.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"
#include "text/numbers.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace kestrel;

namespace {

constexpr int rounds = 41;
constexpr int addressees = 30; // of the roster, and of each round
constexpr double limit = 1.3;

[[noreturn]] void standStill(const std::string& why) {
    std::fprintf(stderr, "the save stands still: %s\n", why.c_str());
    std::exit(2);
}

screen::Control& control(std::string_view name) {
    screen::Window* window = screen::activeWindow();
    screen::Control* found = window ? findControl(*window, name) : nullptr;
    if (!found) standStill(std::string(name));
    return *found;
}

// The person's only act while the save waits.
bool saveOnly() {
    const screen::Window* window = screen::activeWindow();
    if (screen::waiting()) standStill(screen::waiting()->box.text);
    return window && window->name == "msg印刷確認" && hand::click(control("btn_登録"));
}

void changeAddressee(int addressee) {
    static int changes = 0;
    installation.sessionOffice = "001";
    rosterSession.番号基準日付 = "20250331";
    rosterSession.名簿No = "00000012";
    rosterSession.名簿宛先No = text::zeroFilled(addressee + 1, 6);
    loadLinkedEntry();
    refreshScreen();
    hand::click(control("宛先名称B"));
    hand::typeOver("資材部 " + std::to_string(++changes));
}

void save() {
    hand::click(control("btn_登録"));
}

double saveEach() {
    double spent = 0;
    for (int addressee = 0; addressee < addressees; ++addressee) {
        changeAddressee(addressee);
        spent += bench::spentOn(save);
        if (rosterSession.writeResult != 1 || !rosterSession.newEntry || !control("宛先名称B").text.empty())
            standStill(rosterSession.writeMessage);
    }
    return spent;
}

std::vector<bench::Sent> statementsOfEach() {
    std::vector<bench::Sent> statements;
    for (int addressee = 0; addressee < addressees; ++addressee) {
        changeAddressee(addressee);
        const std::vector<bench::Sent> ofOne = bench::sentBy(save);
        statements.insert(statements.end(), ofOne.begin(), ofOne.end());
    }
    return statements;
}

} // namespace

// With --statements the texts that the measuring goes by are written first.
int main(int count, char** arguments) {
    const bench::Installation place(setup::What::full, bench::Where::memory);
    screen::setActSource(saveOnly);
    startProgram("");
    saveEach(); // what a first save of theirs adds to the telephone directory is a change from now on
    const std::vector<bench::Sent> statements = statementsOfEach();
    if (count > 1 && std::strcmp(arguments[1], "--statements") == 0)
        for (const bench::Sent& sent : statements) std::puts(sent.text.c_str());
    bench::Replay replay(place);
    const auto theirs = [&] { return bench::spentOn([&] { replay.run(statements); }); };
    const bench::Comparison comparison = bench::compare(rounds, addressees, saveEach, theirs);
    return bench::tell("save of a changed addressee", comparison, limit);
}
