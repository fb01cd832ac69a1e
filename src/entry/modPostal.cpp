#include "entry/modPostal.hpp"

#include "data/modGateway.hpp"
#include "screen/control.hpp"
#include "session/rosterSession.hpp"
#include "text/characters.hpp"
#include "values/modValues.hpp"

#include <string>

namespace kestrel {

static std::string compared(std::string_view code) {
    return normalizeTelephone(screen::zipText(code));
}

static bool blank(const std::string& line) {
    return text::trim(line).empty();
}

bool readPostalCode(std::string_view code) {
    return openRecordset(rosterSession.postalRecords,
                         "SELECT * FROM M郵便番号 WHERE 郵便番号 = '" + std::string(code) + "'", true);
}

void takePostalCode() {
    constexpr std::size_t oneLine = 15;
    RosterSession& s = rosterSession;
    s.宛先郵便番号 = s.postalRecords.text("郵便番号", s.宛先郵便番号);
    const std::string a = s.postalRecords.text("住所A", "");
    const std::string b = s.postalRecords.text("住所B", "");
    s.postalRecords.close();
    if (!blank(s.宛先住所A)) return; // an address that stands is never overwritten
    if (text::length(text::trim(a)) + text::length(text::trim(b)) <= oneLine) {
        s.宛先住所A = a + b;
        return;
    }
    s.宛先住所A = a;
    if (blank(s.宛先住所B)) s.宛先住所B = b;
}

int changePostalCode(std::string_view typed) {
    const std::string code = compared(typed);
    if (code.empty()) {
        rosterSession.宛先郵便番号.clear();
        return 1;
    }
    if (code == compared(rosterSession.宛先郵便番号)) return 1;
    rosterSession.dirty = true;
    return readPostalCode(typed) ? -1 : 0;
}

} // namespace kestrel
