#include "entry/modSaving.hpp"

#include "calendar/modFiscalDates.hpp"
#include "company/modSignIn.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modPrinting.hpp"
#include "entry/modRosterRecords.hpp"
#include "entry/msgお待ち.hpp"
#include "entry/msg印刷確認.hpp"
#include "platform/clock.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/dates.hpp"

namespace kestrel {

namespace {

constexpr int permitted = -1;
constexpr int administrator = 6; // the access level that may work outside the window of dates

struct DateWindow {
    std::string low, high;
    bool holds(const std::string& date) const { return date >= low && date <= high; }
};

// From the start of the fiscal year (of the year before, in the first two months) to the closing of the month in which
// the fiscal year ends, two years on.
DateWindow dateWindow() {
    const std::string today = platform::dateText(platform::now());
    const std::string yearStart = fiscalYearStart(today);
    const text::Date start = text::dateFromText(yearStart);
    const bool wellInside = today >= text::dateText(text::dateFromParts(start.year, start.month + 2, start.day));
    const text::Date end = text::dateFromText(fiscalYearEnd(wellInside ? today : yearStart));
    return {wellInside ? yearStart : text::dateText(text::yearsLater(start, -1)),
            closingMonthEnd(text::dateText(text::dateFromParts(end.year + 2, end.month, 1)))};
}

void refuse() {
    screen::message("操作権限がありません。");
    screen::setFocus(*rosterSession.lastLeftField);
}

// Both are asked, whatever the first one gave.
bool mayAct(int rightKind) {
    const int right = authorizeOperation(menuGroup, installation.programId, rightKind);
    const int window = checkDateWindow();
    return right == permitted && window == permitted;
}

// A program started for one record ends with it.
void goOn() {
    if (rosterSession.linkStarted)
        requestExit();
    else
        moveFocus(*rosterSession.firstField);
}

void printAfterSave() {
    if (authorizeOperation(menuGroup, "連絡台帳帳票", 4) == permitted) printCard();
}

} // namespace

int checkDateWindow() {
    const DateWindow window = dateWindow();
    const std::string& date = rosterSession.名簿日付;
    if (rosterSession.newEntry && window.holds(date)) return permitted;
    // previousRosterDate stays empty, so this never holds: changes and deletes always need the administrator's level.
    const bool free = window.holds(date) && !rosterSession.newEntry && window.holds(rosterSession.previousRosterDate);
    return free || staff.accessLevel == administrator ? permitted : 0;
}

// A hook for a reference check: this program knows of no references to an addressee.
int referenceCount() {
    return -1;
}

void writeEntry() {
    if (!rosterSession.newEntry) {
        rosterSession.operationKind = "1";
        replaceAddressee();
        return;
    }
    rosterSession.operationKind = "0";
    insertAddressee();
    if (rosterSession.linkStarted && rosterSession.writeResult == 1)
        rosterSession.linkReplyText =
            installation.sessionOffice + rosterSession.番号基準日付 + rosterSession.名簿No + rosterSession.名簿宛先No;
}

void saveEntry() {
    if (!mayAct(rosterSession.newEntry ? 1 : 2)) return refuse();
    if (!checkRequiredFields()) {
        showNotice("必要項目が未入力です。"); // over the notice that checkRequiredFields gave
        return;
    }
    if (confirmSave(installation.programId, "") == 2) return screen::setFocus(*rosterSession.lastLeftField);
    {
        const WaitDialog wait;
        writeEntry();
        if (rosterSession.printChoice == 0) printAfterSave();
        clearScreen();
    }
    goOn();
}

void pressSave(screen::Control&) {
    saveEntry();
}

// The two forms with "？？？。" wait for a reference check; with the constant count neither ever shows.
static bool confirmDelete() {
    if (referenceCount() >= 1) {
        screen::message("？？？。削除出来ません。");
        return false;
    }
    const std::string doubt = referenceCount() == 0 ? "？？？。" : "";
    return screen::question(doubt + "削除しますか?", false);
}

void pressDelete(screen::Control&) {
    if (!mayAct(3)) return refuse();
    if (!confirmDelete()) return screen::setFocus(*rosterSession.lastLeftField);
    {
        const WaitDialog wait;
        rosterSession.operationKind = "2";
        deleteAddressee();
        clearScreen();
    }
    goOn();
}

} // namespace kestrel
