// The commands in the foot of the entry screen that write nothing.
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

void clearScreen() {
    newEntryScreen();
    refreshScreen();
    clearNotice();
}

void pressClear(screen::Control&) {
    if (rosterSession.dirty && !screen::question("入力がありました。\rクリアしますか？")) {
        screen::setFocus(*rosterSession.lastLeftField);
        return;
    }
    clearScreen();
    moveFocus(*rosterSession.firstField);
}

void pressExit(screen::Control&) {
    requestExit();
}

} // namespace kestrel
