#include "entry/modRosterRecords.hpp"

#include "data/modChangeNote.hpp"
#include "data/modGateway.hpp"
#include "numbering/modViewLog.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/columns.hpp"
#include "values/modDirectory.hpp"
#include "values/modValues.hpp"
#include "values/writerStamp.hpp"

namespace kestrel {

namespace {

using Value = std::string RosterSession::*;
using Number = std::int16_t RosterSession::*;

constexpr std::int16_t rowWritten = 1; // writeResult of an insert that succeeded

enum class Taken { no, yes };
enum class Written { asHeld, quoted };

// One column of T名簿明細: where its value stands in the session, or how it is made.
struct AddresseeColumn {
    std::string_view name;
    Taken taken = Taken::no;
    Value value = nullptr;
    Written written = Written::asHeld;
    Number number = nullptr;
    std::string (*made)() = nullptr;

    constexpr AddresseeColumn(std::string_view n, Value v, Taken t, Written w = Written::asHeld)
        : name(n), taken(t), value(v), written(w) {}
    constexpr AddresseeColumn(std::string_view n, Number v) : name(n), taken(Taken::yes), number(v) {}
    constexpr AddresseeColumn(std::string_view n, std::string (*make)()) : name(n), made(make) {}
};

std::string office() {
    return installation.sessionOffice;
}
std::string searchTelephone() {
    return normalizeTelephone(rosterSession.宛先電話);
}
std::string searchFax() {
    return normalizeTelephone(rosterSession.宛先FAX);
}

// In the order of the insert.
constexpr AddresseeColumn addresseeColumns[] = {
    {"事業所コード", office},
    {"番号基準日付", &RosterSession::番号基準日付, Taken::no},
    {"名簿No", &RosterSession::名簿No, Taken::no},
    {"名簿宛先No", &RosterSession::名簿宛先No, Taken::yes},
    {"名簿日付", &RosterSession::名簿日付, Taken::no},
    {"担当者コード", &RosterSession::担当者コード, Taken::no},
    {"部門コード", &RosterSession::部門コード, Taken::no},
    {"セクションコード", &RosterSession::セクションコード, Taken::no},
    {"宛先名称A", &RosterSession::宛先名称A, Taken::yes, Written::quoted},
    {"宛先名称B", &RosterSession::宛先名称B, Taken::yes, Written::quoted},
    {"宛先名称C", &RosterSession::宛先名称C, Taken::yes, Written::quoted},
    {"宛先郵便番号", &RosterSession::宛先郵便番号, Taken::yes},
    {"宛先住所A", &RosterSession::宛先住所A, Taken::yes, Written::quoted},
    {"宛先住所B", &RosterSession::宛先住所B, Taken::yes, Written::quoted},
    {"宛先住所C", &RosterSession::宛先住所C, Taken::yes, Written::quoted},
    {"宛先電話", &RosterSession::宛先電話, Taken::yes},
    {"宛先FAX", &RosterSession::宛先FAX, Taken::yes},
    {"宛先HOMEPAGE", &RosterSession::宛先HOMEPAGE, Taken::yes, Written::quoted},
    {"宛先EMAIL", &RosterSession::宛先EMAIL, Taken::yes, Written::quoted},
    {"法人個人区分", &RosterSession::法人個人区分},
    {"発送区分", &RosterSession::発送区分},
    {"宛先摘要", &RosterSession::宛先摘要, Taken::yes, Written::quoted},
    {"宛先電話番号", searchTelephone},
    {"宛先FAX番号", searchFax},
    {"宛先ID", &RosterSession::宛先ID, Taken::yes},
    {"得意先登録日付", &RosterSession::得意先登録日付, Taken::yes},
    {"得意先コード", &RosterSession::得意先コード, Taken::yes},
    {"納品先登録日付", &RosterSession::納品先登録日付, Taken::yes},
    {"納品先コード", &RosterSession::納品先コード, Taken::yes},
    {"仕入先登録日付", &RosterSession::仕入先登録日付, Taken::yes},
    {"仕入先コード", &RosterSession::仕入先コード, Taken::yes},
    {"メーカ登録日付", &RosterSession::メーカ登録日付, Taken::yes},
    {"メーカコード", &RosterSession::メーカコード, Taken::yes},
    {"承認日付", &RosterSession::承認日付, Taken::yes},
    {"承認者コード", &RosterSession::承認者コード, Taken::yes},
    {"承認区分", &RosterSession::承認区分, Taken::yes},
    {"ユーザID", writerStamp},
    {"登録日付", &RosterSession::登録日付, Taken::yes},
    {"更新日付", &RosterSession::更新日付, Taken::yes},
};

constexpr Value rosterHeaderValues[] = {
    &RosterSession::名簿No,       &RosterSession::番号基準日付,     &RosterSession::previousRosterDate,
    &RosterSession::担当者コード, &RosterSession::担当者名,         &RosterSession::部門コード,
    &RosterSession::部門名,       &RosterSession::セクションコード, &RosterSession::セクション名,
    &RosterSession::名簿名称,
};

// What a new addressee doesn't take over from the one before. Not here, on purpose: 法人個人区分, 宛先ID, 承認区分,
// 登録日付 and 更新日付, which an insert that follows writes into the new row.
constexpr Value addresseeValues[] = {
    &RosterSession::名簿宛先No,     &RosterSession::宛先名称A,      &RosterSession::宛先名称B,
    &RosterSession::宛先名称C,      &RosterSession::宛先郵便番号,   &RosterSession::宛先住所A,
    &RosterSession::宛先住所B,      &RosterSession::宛先住所C,      &RosterSession::宛先電話,
    &RosterSession::宛先FAX,        &RosterSession::宛先HOMEPAGE,   &RosterSession::宛先EMAIL,
    &RosterSession::宛先摘要,       &RosterSession::得意先登録日付, &RosterSession::得意先コード,
    &RosterSession::納品先登録日付, &RosterSession::納品先コード,   &RosterSession::仕入先登録日付,
    &RosterSession::仕入先コード,   &RosterSession::メーカ登録日付, &RosterSession::メーカコード,
    &RosterSession::承認日付,       &RosterSession::承認者コード,
};

std::string writtenValue(const AddresseeColumn& column) {
    if (column.made) return column.made();
    if (column.number) return std::to_string(rosterSession.*column.number);
    const std::string& held = rosterSession.*column.value;
    return column.written == Written::quoted ? quoteSqlText(held) : held;
}

void takeDate(const database::RecordSet& row, std::string_view column, std::string& whole, std::string& year,
              std::string& month, std::string& day) {
    const std::optional<std::string> date = row.textOrNull(column);
    if (!date) return;
    whole = *date;
    year = text::slice(whole, 0, 4);
    month = text::slice(whole, 4, 2);
    day = text::slice(whole, 6, 2);
    normalizeDateParts(year, month, day);
}

std::string quotedKey(std::string_view column, std::string_view value) {
    return "T名簿明細." + std::string(column) + " = '" + std::string(value) + "'";
}

// Office, base date and roster number of the record on the screen.
std::string rosterOfAddressee() {
    return quotedKey("事業所コード", installation.sessionOffice) + " AND " +
           quotedKey("番号基準日付", rosterSession.番号基準日付) + " AND " + quotedKey("名簿No", rosterSession.名簿No);
}

std::string insertStatement() {
    std::string columns, values;
    for (const AddresseeColumn& column : addresseeColumns) {
        const char* between = columns.empty() ? "(" : ",";
        columns.append(between).append("[").append(column.name).append("]");
        values.append(between).append("'").append(writtenValue(column)).append("'");
    }
    return "INSERT INTO [T名簿明細] " + columns + ") VALUES " + values + ")";
}

void setOutcome(std::int16_t result, std::string_view message) {
    rosterSession.writeResult = result;
    rosterSession.writeMessage = message;
}

} // namespace

bool readRosterHeader(std::string_view officeCode, std::string_view baseDate, std::string_view rosterNo) {
    std::string sql =
        "SELECT TOP 1 T名簿.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名"
        " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T名簿"
        " ON M担当者.コード = T名簿.担当者コード) ON M部門.コード = T名簿.部門コード)"
        " ON Mセクション.コード = T名簿.セクションコード";
    sql.append(" WHERE T名簿.名簿No = '").append(rosterNo).append("'");
    sql.append(" AND T名簿.事業所コード = '").append(officeCode).append("'");
    sql.append(" AND T名簿.番号基準日付 = '").append(baseDate).append("'");
    return openRecordset(rosterSession.rosterRecords, sql, true);
}

void takeRosterHeader() {
    RosterSession& s = rosterSession;
    database::RecordSet& row = s.rosterRecords;
    takeColumn(row, "事業所コード", installation.sessionOffice);
    takeColumn(row, "番号基準日付", s.番号基準日付);
    takeDate(row, "名簿日付", s.名簿日付, s.名簿日付年, s.名簿日付月, s.名簿日付日);
    takeColumn(row, "名簿No", s.名簿No);
    takeColumn(row, "担当者コード", s.担当者コード);
    takeColumn(row, "担当者名", s.担当者名);
    takeColumn(row, "部門コード", s.部門コード);
    takeColumn(row, "部門名", s.部門名);
    takeColumn(row, "セクションコード", s.セクションコード);
    takeColumn(row, "セクション名", s.セクション名);
    takeColumn(row, "名簿名称", s.名簿名称);
    takeDate(row, "発送日付", s.発送日付, s.発送日付年, s.発送日付月, s.発送日付日);
    row.close();
}

void clearRosterHeader() {
    for (Value value : rosterHeaderValues) (rosterSession.*value).clear();
    rosterSession.rosterRecords.close();
}

bool readAddressee(std::string_view addresseeNo) {
    // Before the read, so that a look at an addressee who turns out not to exist leaves a row too.
    writeViewRecord(installation.programId, installation.sessionOffice, rosterSession.番号基準日付,
                    rosterSession.名簿No, addresseeNo);
    return openRecordset(rosterSession.addresseeRecords,
                         "SELECT T名簿明細.* FROM T名簿明細 WHERE " + rosterOfAddressee() + " AND " +
                             quotedKey("名簿宛先No", addresseeNo),
                         false);
}

void takeAddressee() {
    database::RecordSet& row = rosterSession.addresseeRecords;
    for (const AddresseeColumn& column : addresseeColumns) {
        if (column.taken == Taken::no) continue;
        if (column.number)
            takeColumn(row, column.name, rosterSession.*column.number);
        else
            takeColumn(row, column.name, rosterSession.*column.value);
    }
    row.close();
    rosterSession.newEntry = rosterSession.dirty = false;
}

void clearAddressee() {
    for (Value value : addresseeValues) (rosterSession.*value).clear();
    rosterSession.発送区分 = 0;
    rosterSession.addresseeRecords.close();
    assignNextAddresseeNo();
}

void assignNextAddresseeNo() {
    constexpr int width = 6;
    database::RecordSet highest;
    const bool found = openRecordset(
        highest,
        "SELECT 名簿宛先No FROM T名簿明細 WHERE " + rosterOfAddressee() + " ORDER BY T名簿明細.名簿宛先No DESC", false);
    const long long last = found ? text::wholeNumber(highest.text("名簿宛先No", "")) : 0;
    rosterSession.名簿宛先No = text::zeroFilled(last + 1, width);
    highest.close();
    rosterSession.newEntry = true;
    rosterSession.dirty = false;
}

static void sendInsert(const std::string& statement) {
    if (!executeSql(statement, true)) {
        setOutcome(3, "登録済です。登録できませんでした。");
        return;
    }
    setOutcome(rowWritten, "");
    const RosterSession& s = rosterSession;
    updatePhoneDirectory(s.宛先電話, s.宛先名称A + s.宛先名称B + s.宛先名称C, s.宛先郵便番号, s.宛先住所A, s.宛先住所B,
                         s.宛先住所C, s.法人個人区分);
}

void insertAddressee() {
    sendInsert(insertStatement());
}

void deleteAddressee() {
    const bool deleted = executeSql("DELETE FROM T名簿明細 WHERE " + rosterOfAddressee() + " AND " +
                                        quotedKey("名簿宛先No", rosterSession.名簿宛先No),
                                    true);
    if (deleted) {
        setOutcome(7, "");
        return;
    }
    setOutcome(6, "既に削除されています。削除できませんでした。");
    screen::message(rosterSession.writeMessage);
}

void replaceAddressee() {
    const std::string statement = insertStatement();
    platform::HeldFile note = noteChange("T名簿明細", statement);
    deleteAddressee();
    sendInsert(statement);
    if (rosterSession.writeResult == rowWritten) note.remove();
}

} // namespace kestrel
