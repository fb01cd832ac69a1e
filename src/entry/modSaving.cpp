#include "entry/modSaving.hpp"

#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

namespace kestrel {

namespace {

// A program that was started for one record ends with it.
void goOn() {
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

void replaceOld() {
    rosterSession.operationKind = "1";
    replaceAddressee();
}

} // namespace

void writeEntry() {
    if (rosterSession.newEntry)
        insertNew();
    else
        replaceOld();
}

// The outcome of the write isn't asked: the run history tells of a failure, and the screen is ready for the next one.
void saveEntry() {
    if (!checkRequiredFields()) {
        showNotice("必要項目が未入力です。");
        return;
    }
    writeEntry();
    clearScreen();
    goOn();
}

// A hook kept for a check of references: nothing refers to an addressee here.
int referenceCount() {
    return -1;
}

void pressSave(screen::Control&) {
    saveEntry();
}

void pressDelete(screen::Control&) {
    rosterSession.operationKind = "2";
    deleteAddressee();
    clearScreen();
    goOn();
}

} // namespace kestrel
