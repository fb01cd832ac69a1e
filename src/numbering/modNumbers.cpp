#include "numbering/modNumbers.hpp"

#include "calendar/modFiscalDates.hpp"
#include "data/modGateway.hpp"
#include "data/modHistory.hpp"
#include "numbering/counters.hpp"
#include "platform/clock.hpp"
#include "screen/message.hpp"
#include "session/companyValues.hpp"
#include "session/sessionValues.hpp"
#include "text/numbers.hpp"

#include <limits>

namespace kestrel {

namespace {

constexpr std::string_view noRegister = "00000000";

bool isScoped(long long type) {
    return type >= 1 && type <= 3;
}

bool isValid(long long type) {
    return type == 0 || isScoped(type);
}

// A counter that isn't a number counts as 0. There is no ceiling: past eight digits the text grows.
std::string numberAfter(const database::RecordSet& row) {
    const long long last = text::wholeNumber(row.text("連番", ""));
    const std::string next = text::zeroFilled(last == std::numeric_limits<long long>::max() ? last : last + 1, 8);
    return next == noRegister ? "00000001" : next;
}

bool openRegister(database::RecordSet& records, std::string_view id) {
    return openRecordset(records, registerText(id), false);
}

// Makes the counter's row, as a copy of the register's key, when it isn't there. What comes of it isn't looked at.
void ensureRow(const Counter& counter) {
    database::RecordSet existing;
    const bool exists = openRecordset(existing, selectText(counter, counter.row), false);
    existing.close();
    if (exists) return;
    database::RecordSet source;
    if (openRecordset(source, counter.sourceText, false))
        executeSql(insertText(counter, source.text("番号ID", "")), false);
    source.close();
}

std::string readNumber(const Counter& counter, const std::string& condition) {
    database::RecordSet records;
    std::string next;
    if (openRecordset(records, selectText(counter, condition), false)) next = numberAfter(records);
    records.close();
    return next;
}

struct Draw {
    NumberKey key;
    bool take = false;
};

// The company's own counter without a scope is the register's row, which is open here.
std::string drawFromRegister(const Draw& draw, const database::RecordSet& row) {
    const std::string next = numberAfter(row);
    if (draw.take) executeSql(updateText(registerCounter(draw.key), next), false);
    return next;
}

std::string drawFromCounter(const Draw& draw, const Counter& counter, long long type) {
    ensureRow(counter);
    if (!isValid(type)) return "";
    const std::string next = readNumber(counter, draw.take ? counter.row : counter.peekedRow);
    if (draw.take) executeSql(updateText(counter, next), false); // an empty number finds no row
    return next;
}

std::string draw(const Draw& draw, bool byOffice, const database::RecordSet& row) {
    const long long type = text::leadingNumber(row.text("連番種類", ""));
    if (byOffice) return drawFromCounter(draw, type == 0 ? officeCounter(draw.key) : officeDateCounter(draw.key), type);
    return type == 0 ? drawFromRegister(draw, row) : drawFromCounter(draw, dateCounter(draw.key), type);
}

void tellMissing(std::string_view number) {
    if (number == noRegister) screen::message("番号情報に問題が発生設定できませんでした。");
}

std::string drawn(const Draw& request, bool byOffice) {
    database::RecordSet records;
    const std::string next =
        openRegister(records, request.key.id) ? draw(request, byOffice, records) : std::string(noRegister);
    records.close();
    return next;
}

// Reading and writing as one, so that two instances never take the same number. A database that doesn't give the right
// to write leaves the statements to themselves, and they tell what is wrong.
std::string drawnAlone(const Draw& request, bool byOffice) {
    database::Connection& connection = connections.mainConnection;
    if (!connection.beginDraw()) return drawn(request, byOffice);
    try {
        const std::string next = drawn(request, byOffice);
        if (const auto kept = connection.endDraw(true); !kept) writeErrorHistory(kept.failure().description);
        return next;
    } catch (...) {
        (void)connection.endDraw(false);
        throw;
    }
}

std::string drawInScope(const Draw& request, bool byOffice) {
    const std::string next = request.take ? drawnAlone(request, byOffice) : drawn(request, byOffice);
    tellMissing(next); // not before the draw has ended: a box may stand there for long
    return next;
}

// The scope's own operation tells of a missing register, and so does the choice between the scopes: it is told twice.
std::string nextNumber(const Draw& request) {
    const std::string next = drawInScope(request, company.伝票番号管理区分 != 0);
    tellMissing(next);
    return next;
}

std::string baseDateFor(long long type, std::string_view date, const std::string& yearEnd,
                        const std::string& monthEnd) {
    switch (type) {
    case 0:
        return "99999999";
    case 1:
        return yearEnd;
    case 2:
        return monthEnd;
    case 3:
        return std::string(date);
    default:
        return "88888888";
    }
}

} // namespace

std::string numberBaseDate(std::string_view id, std::string_view date) {
    const std::string day = date == "99999999" ? platform::dateText(platform::now()) : std::string(date);
    const std::string yearEnd = fiscalYearEnd(day), monthEnd = closingMonthEnd(day);
    database::RecordSet records;
    std::string base;
    if (openRegister(records, id))
        base = baseDateFor(text::leadingNumber(records.text("連番種類", "")), day, yearEnd, monthEnd);
    records.close();
    return base;
}

std::string peekNextNumber(std::string_view id, std::string_view baseDate, std::string_view office) {
    return nextNumber({{std::string(id), std::string(baseDate), std::string(office)}, false});
}

std::string takeNextNumber(std::string_view id, std::string_view baseDate, std::string_view office) {
    return nextNumber({{std::string(id), std::string(baseDate), std::string(office)}, true});
}

} // namespace kestrel
