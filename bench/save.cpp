// A save of a changed addressee, from the press of btn_登録 to the cleared screen, against the same statements through
// the engine's own interface. The question is answered at once.
#include "entry/frm連絡台帳入力.hpp"
#include "screen/acts.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace kestrel;

namespace {

constexpr int rounds = 41, steps = 40;
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

void changeAddressee() {
    static int changes = 0;
    installation.sessionOffice = "001";
    rosterSession.番号基準日付 = "20250331";
    rosterSession.名簿No = "00000012";
    rosterSession.名簿宛先No = "000003";
    loadLinkedEntry();
    refreshScreen();
    hand::click(control("宛先名称B"));
    hand::typeOver("資材部 " + std::to_string(++changes));
}

void save() {
    hand::click(control("btn_登録"));
}

double saveMany() {
    double spent = 0;
    for (int i = 0; i < steps; ++i) {
        changeAddressee();
        spent += bench::spentOn(save);
        if (rosterSession.writeResult != 1 || !rosterSession.newEntry || !control("宛先名称B").text.empty())
            standStill(rosterSession.writeMessage);
    }
    return spent;
}

} // namespace

int main(int count, char** arguments) {
    const bench::Installation place(setup::What::full, bench::Where::memory);
    screen::setActSource(saveOnly);
    startProgram("");
    changeAddressee();
    const std::vector<bench::Sent> statements = bench::sentBy(save);
    if (count > 1 && std::strcmp(arguments[1], "--statements") == 0)
        for (const bench::Sent& sent : statements) std::puts(sent.text.c_str());
    bench::Replay replay(place);
    const auto theirs = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < steps; ++i) replay.run(statements);
        });
    };
    const bench::Comparison comparison = bench::compare(rounds, steps, saveMany, theirs);
    return bench::tell("save of a changed addressee (" + std::to_string(statements.size()) + " statements)", comparison,
                       limit);
}
