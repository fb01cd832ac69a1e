#include "entry/modPartners.hpp"

#include "data/modGateway.hpp"
#include "platform/clock.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modValues.hpp"
#include "values/writerStamp.hpp"

namespace kestrel {

namespace {

constexpr int codeWidth = 6;

std::string codeOf(long long number) {
    return text::zeroFilled(number, codeWidth);
}

// Cut before its apostrophes are doubled.
std::string shortName() {
    constexpr std::size_t characters = 10;
    return quoteSqlText(text::first(rosterSession.宛先名称A, characters));
}

std::string contentOf(const PartnerValue& value, const Partner& partner) {
    using enum PartnerValue::Kind;
    switch (value.kind) {
    case fixed:
    case bare:
        return std::string(value.text);
    case code:
        return rosterSession.*partner.code;
    case shortName:
        return kestrel::shortName();
    case asHeld:
        return rosterSession.*value.held;
    case quoted:
        return quoteSqlText(rosterSession.*value.held);
    case searchTelephone:
        return normalizeTelephone(rosterSession.宛先電話);
    case term:
        return text::zeroFilled(company.*value.term, value.width);
    case today:
        return platform::dateText(platform::now());
    case writer:
        return writerStamp();
    case now:
        return platform::stampText(platform::now());
    }
    return "";
}

std::string writtenValue(const PartnerValue& value, const Partner& partner) {
    const std::string content = contentOf(value, partner);
    return value.kind == PartnerValue::Kind::bare ? content : "'" + content + "'";
}

std::string insertStatement(const Partner& partner) {
    std::string names, values;
    for (const PartnerColumn& column : partner.columns) {
        names.append(names.empty() ? "" : ",").append(column.name);
        values.append(values.empty() ? "" : partner.between).append(writtenValue(column.value, partner));
    }
    return "INSERT INTO " + std::string(partner.table) + " (" + names + ") VALUES (" + values + ")";
}

std::string searchBelow(const Partner& partner, std::string_view select, const std::string& limit) {
    return std::string(select) + "コード FROM " + std::string(partner.table) + " WHERE コード < '" + limit +
           "' ORDER BY コード DESC";
}

// The code after the first one that the search finds; empty when it finds none. The slot is left closed.
std::string codeAfter(const Partner& partner, const std::string& search) {
    database::RecordSet& slot = rosterSession.*partner.slot;
    std::string code;
    if (openRecordset(slot, search, false)) code = codeOf(text::wholeNumber(slot.text("コード", "")) + 1);
    slot.close();
    return code;
}

} // namespace

// Letters sort above "999999" and take no part; "999999" itself is given out once and then again and again.
void assignPartnerCode(const Partner& partner) {
    const char* select = partner.searched == Searched::firstRow ? "SELECT TOP 1 " : "SELECT ";
    std::string code = codeAfter(partner, searchBelow(partner, select, nineString(codeWidth)));
    if (code.empty())
        code = codeOf(1);
    else if (text::wholeNumber(code) == 0) // the highest was -1: look lower down
        code = codeAfter(partner, searchBelow(partner, "SELECT ", "500000"));
    rosterSession.*partner.code = code;
}

void registerPartner(const Partner& partner) {
    if ((rosterSession.*partner.code).empty()) return;
    if (!executeSql(insertStatement(partner), true)) return;
    rosterSession.*partner.madeOn = platform::dateText(platform::now());
    rosterSession.dirty = true;
}

bool linkPartner(const Partner& partner, std::string_view code) {
    database::RecordSet& slot = rosterSession.*partner.slot;
    const bool found = openRecordset(
        slot, "SELECT * FROM " + std::string(partner.table) + " WHERE コード = '" + std::string(code) + "'", true);
    if (found) rosterSession.*partner.code = slot.text("コード", "");
    slot.close();
    return found;
}

} // namespace kestrel
