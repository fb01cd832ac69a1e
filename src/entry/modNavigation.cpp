#include "entry/modNavigation.hpp"

#include "data/modGateway.hpp"
#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

#include <string>

namespace kestrel {

namespace {

enum class Direction { previous, next };

const RosterSession& now() {
    return rosterSession;
}
std::string compare(Direction way) {
    return way == Direction::next ? ">" : "<";
}
std::string order(Direction way) {
    return way == Direction::next ? "" : " DESC";
}

std::string datedClause(Direction way) {
    const std::string beyond = compare(way);
    const std::string comma = way == Direction::next ? " , " : " DESC, ";
    return " AND ((番号基準日付 = '" + now().番号基準日付 + "' AND 名簿No " + beyond + " '" + now().名簿No + "')" +
           " OR 番号基準日付 " + beyond + " '" + now().番号基準日付 + "')" + " ORDER BY 番号基準日付" + comma +
           "名簿No" + order(way);
}

std::string byRosterDate(Direction way) {
    return " AND 名簿日付 " + compare(way) + "= '" + now().名簿日付 + "'" + " ORDER BY 名簿日付" + order(way) +
           ", 名簿No" + order(way);
}

std::string undatedClause(Direction way) {
    return " AND 名簿No " + compare(way) + " '" + now().名簿No + "'" + byRosterDate(way);
}

std::string rosterClause(Direction way) {
    if (now().名簿No.empty()) return byRosterDate(way);
    return now().番号基準日付 == "99999999" ? undatedClause(way) : datedClause(way);
}

bool searchRoster(const std::string& clause) {
    return openRecordset(rosterSession.rosterRecords,
                         "SELECT TOP 1 番号基準日付,名簿No FROM T名簿 WHERE 事業所コード = '" +
                             installation.sessionOffice + "'" + clause,
                         false);
}

bool searchAddressee(Direction way) {
    const std::string& number = now().名簿宛先No;
    std::string sql = "SELECT TOP 1 名簿宛先No FROM T名簿明細 WHERE 事業所コード = '" + installation.sessionOffice +
                      "'" + " AND 番号基準日付 = '" + now().番号基準日付 + "'" + " AND 名簿No = '" + now().名簿No + "'";
    if (!number.empty()) sql += " AND 名簿宛先No " + compare(way) + " '" + number + "'";
    return openRecordset(rosterSession.addresseeRecords, sql + " ORDER BY 名簿宛先No" + order(way), false);
}

bool closing(database::RecordSet& slot, bool found) {
    slot.close();
    return found;
}

bool findRoster(const std::string& clause) {
    return closing(rosterSession.rosterRecords, searchRoster(clause));
}
bool findAddressee(Direction way) {
    return closing(rosterSession.addresseeRecords, searchAddressee(way));
}

bool moveRoster(Direction way) {
    database::RecordSet& slot = rosterSession.rosterRecords;
    if (!searchRoster(rosterClause(way))) return closing(slot, false);
    const std::string baseDate = slot.text("番号基準日付");
    const std::string rosterNo = slot.text("名簿No");
    slot.close();
    if (readRosterHeader(installation.sessionOffice, baseDate, rosterNo))
        takeRosterHeader();
    else
        clearRosterHeader();
    return true;
}

bool moveAddressee(Direction way) {
    database::RecordSet& slot = rosterSession.addresseeRecords;
    if (!searchAddressee(way)) return closing(slot, false);
    const std::string number = slot.text("名簿宛先No");
    slot.close();
    if (readAddressee(number))
        takeAddressee();
    else
        clearAddressee();
    return true;
}

void nothingMore() {}

struct Step {
    std::string_view button;
    bool (*find)();
    std::string_view asked;
    bool (*move)();
    void (*afterwards)();
    std::string_view focus;
};

constexpr Step steps[] = {
    {"btn_前No", findPreviousRoster, "クリアし前Noを表示しますか？", movePreviousRoster, assignNextAddresseeNo,
     "名簿宛先No"},
    {"btn_次No", findNextRoster, "クリアし次Noを表示しますか？", moveNextRoster, assignNextAddresseeNo, "名簿宛先No"},
    {"btn_前明細No", findPreviousAddressee, "クリアし前宛先Noを表示しますか？", movePreviousAddressee, nothingMore,
     "宛先名称A"},
    {"btn_次明細No", findNextAddressee, "クリアし次宛先Noを表示しますか？", moveNextAddressee, nothingMore,
     "宛先名称A"},
};

bool mayLeave(const Step& step) {
    return !rosterSession.dirty || screen::question("入力がありました。\r" + std::string(step.asked));
}

void run(const Step& step) {
    if (!step.find() || !mayLeave(step)) return screen::setFocus(*rosterSession.lastLeftField);
    step.move();
    step.afterwards();
    refreshScreen();
    screen::setFocus(entryControl(step.focus));
}

} // namespace

// Alone of the four, this one orders by base date under numbers that count for ever too, so the button may find a
// roster that the move then doesn't reach; the header then stays as it is.
bool findPreviousRoster() {
    return findRoster(now().名簿No.empty() ? byRosterDate(Direction::previous) : datedClause(Direction::previous));
}
bool findNextRoster() {
    return findRoster(rosterClause(Direction::next));
}
bool findPreviousAddressee() {
    return findAddressee(Direction::previous);
}
bool findNextAddressee() {
    return findAddressee(Direction::next);
}

bool movePreviousRoster() {
    return moveRoster(Direction::previous);
}
bool moveNextRoster() {
    return moveRoster(Direction::next);
}
bool movePreviousAddressee() {
    return moveAddressee(Direction::previous);
}
bool moveNextAddressee() {
    return moveAddressee(Direction::next);
}

void pressStep(screen::Control& button) {
    for (const Step& step : steps)
        if (step.button == button.name) return run(step);
}

} // namespace kestrel
