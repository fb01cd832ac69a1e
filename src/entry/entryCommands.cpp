// The commands in the foot of the entry screen.
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

namespace kestrel {

namespace {

void makeReadyForNext() {
    newEntryScreen();
    refreshScreen();
    clearNotice();
}

// A program that was started for one record ends with it.
void finishWrite() {
    makeReadyForNext();
    if (rosterSession.linkStarted)
        requestExit();
    else
        moveFocus(*rosterSession.firstField);
}

void insertNew() {
    rosterSession.operationKind = "0";
    insertAddressee();
    if (rosterSession.linkStarted && rosterSession.writeResult == 1)
        rosterSession.linkReplyText =
            installation.sessionOffice + rosterSession.番号基準日付 + rosterSession.名簿No + rosterSession.名簿宛先No;
}

void writeEntry() {
    if (rosterSession.newEntry) {
        insertNew();
        return;
    }
    rosterSession.operationKind = "1";
    replaceAddressee();
}

} // namespace

void saveEntry() {
    if (!checkRequiredFields()) {
        showNotice("必要項目が未入力です。");
        return;
    }
    writeEntry();
    finishWrite();
}

// A hook kept for a check of references: 1 and more forbid a delete. Nothing refers to an addressee here.
int referenceCount() {
    return -1;
}

void pressSave(screen::Control&) {
    saveEntry();
}

void pressDelete(screen::Control&) {
    rosterSession.operationKind = "2";
    deleteAddressee();
    finishWrite();
}

void pressClear(screen::Control&) {
    if (rosterSession.dirty && !screen::question("入力がありました。\rクリアしますか？")) {
        screen::setFocus(*rosterSession.lastLeftField);
        return;
    }
    makeReadyForNext();
    moveFocus(*rosterSession.firstField);
}

void pressExit(screen::Control&) {
    requestExit();
}

} // namespace kestrel
