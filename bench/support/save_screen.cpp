#include "save_screen.hpp"

#include "entry/frm連絡台帳入力.hpp"
#include "screen/acts.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/numbers.hpp"

#include <cstdio>
#include <cstdlib>

namespace kestrel::bench {

namespace {

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

} // namespace

void answerSaves() {
    screen::setActSource(saveOnly);
}

void saveEach(const std::function<void(const std::function<void()>& save)>& around) {
    for (int addressee = 0; addressee < savedAddressees; ++addressee) {
        changeAddressee(addressee);
        around(save);
        if (rosterSession.writeResult != 1 || !rosterSession.newEntry || !control("宛先名称B").text.empty())
            standStill(rosterSession.writeMessage);
    }
}

std::vector<Sent> statementsOfSaves() {
    std::vector<Sent> statements;
    saveEach([&](const std::function<void()>& save) {
        const std::vector<Sent> ofOne = sentBy(save);
        statements.insert(statements.end(), ofOne.begin(), ofOne.end());
    });
    return statements;
}

} // namespace kestrel::bench
