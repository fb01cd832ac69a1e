// What entering, changing and leaving a field of the entry screen does. The fields are alike: one table tells them
// apart.
#include "entry/entryForm.hpp"
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modPostal.hpp"
#include "entry/modRosterRecords.hpp"
#include "numbering/modNumbers.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modFieldLength.hpp"
#include "values/modValues.hpp"

#include <algorithm>

namespace kestrel {

namespace {

struct FieldRule {
    std::string_view field;
    int order;                                                   // in the order of entry, for the gate
    void (*leave)(screen::Control&, const FieldRule&) = nullptr; // none: nothing typed there reaches the session
    std::string RosterSession::*value = nullptr;
    std::string_view detail = {}; // a text: the field whose limit cuts it; a part of a date: its mask
};

void leaveOnly(screen::Control&, const FieldRule&) {}

void takeText(screen::Control& field, const FieldRule& rule) {
    std::string& value = rosterSession.*rule.value;
    if (field.text == value) return;
    rosterSession.dirty = true;
    value = truncateToBytes(field.text, entryControl(rule.detail).maxLength);
}

void leaveText(screen::Control& field, const FieldRule& rule) {
    takeText(field, rule);
    showEntry();
}

void leaveTextAndRefresh(screen::Control& field, const FieldRule& rule) {
    takeText(field, rule);
    refreshScreen();
}

void leaveMemo(screen::Control& field, const FieldRule& rule) {
    std::string& value = rosterSession.*rule.value;
    if (field.text != value) {
        rosterSession.dirty = true;
        value = field.text;
    }
    showEntry();
}

void leaveDatePart(screen::Control& field, const FieldRule& rule) {
    const std::string part = formatToMask(field.text, rule.detail);
    if (part != rosterSession.*rule.value) {
        rosterSession.dirty = true;
        rosterSession.*rule.value = part;
        changeRosterDate();
    }
    refreshScreen();
}

// Emptying a telephone number alone is no input: the value goes, dirty stays as it was.
void leaveTelephone(screen::Control& field, const FieldRule& rule) {
    std::string& value = rosterSession.*rule.value;
    const std::string typed = normalizeTelephone(field.text);
    if (typed.empty()) {
        value.clear();
    } else if (typed != normalizeTelephone(value)) {
        rosterSession.dirty = true;
        value = field.text;
    }
    showEntry();
}

// A number is shown as masked, also when it is the one that stood there.
std::string takeMasked(screen::Control& field, std::string_view mask) {
    screen::setText(field, formatToMask(field.text, mask));
    return field.text;
}

void leaveRosterNo(screen::Control& field, const FieldRule&) {
    const int result = changeRosterNo(takeMasked(field, "00000000"));
    if (result == -1) {
        takeRosterHeader();
        assignNextAddresseeNo();
        refreshScreen();
    } else if (result == 0) {
        rosterSession.newEntry = true;
        clearRosterHeader();
        refreshScreen();
    }
    showNotice(result == 0 ? "該当情報がありません。" : "");
}

void leaveAddresseeNo(screen::Control& field, const FieldRule&) {
    const int result = changeAddresseeNo(takeMasked(field, "000000"));
    if (result == 1) return;
    if (result == -1)
        takeAddressee();
    else
        clearAddressee();
    refreshScreen();
    showNotice(result == 0 ? "新規情報です。" : "");
}

void leavePostalCode(screen::Control& field, const FieldRule&) {
    const int result = changePostalCode(field.text);
    if (result == 1) return;
    if (result == 9) return showNotice("正しいコードを入力してください。"); // a hook: no code comes to this
    if (result == -1)
        takePostalCode();
    else
        rosterSession.postalRecords.close();
    showEntry();
    showNotice(result == 0 ? "該当情報が有りません。" : "");
}

void leaveCode(screen::Control& field, const FieldRule&) {
    leavePartnerCode(field);
}

constexpr FieldRule fieldRules[] = {
    {"名簿日付年", 1, leaveDatePart, &RosterSession::名簿日付年, "0000"},
    {"名簿日付月", 2, leaveDatePart, &RosterSession::名簿日付月, "00"},
    {"名簿日付日", 3, leaveDatePart, &RosterSession::名簿日付日, "00"},
    {"名簿No", 4, leaveRosterNo},
    {"名簿名称", 5},
    {"担当者コード", 5},
    {"担当者名", 5},
    {"部門コード", 5},
    {"部門名", 5},
    {"セクションコード", 5},
    {"セクション名", 5},
    {"名簿宛先No", 5, leaveAddresseeNo},
    {"宛先名称A", 6, leaveText, &RosterSession::宛先名称A, "宛先名称A"},
    {"宛先名称B", 7, leaveText, &RosterSession::宛先名称B, "宛先名称B"},
    {"宛先名称C", 7, leaveText, &RosterSession::宛先名称C, "宛先名称B"},
    {"宛先郵便番号", 7, leavePostalCode},
    {"宛先住所A", 7, leaveText, &RosterSession::宛先住所A, "宛先住所A"},
    {"宛先住所B", 7, leaveText, &RosterSession::宛先住所B, "宛先住所B"},
    {"宛先住所C", 7, leaveText, &RosterSession::宛先住所C, "宛先住所C"},
    {"宛先電話", 7, leaveTelephone, &RosterSession::宛先電話},
    {"宛先FAX", 7, leaveTelephone, &RosterSession::宛先FAX},
    {"法人個人区分", 7, leaveOnly},
    {"法人個人区分名称", 7, leaveOnly},
    {"発送区分", 7, leaveOnly},
    {"発送区分名称", 7, leaveOnly},
    {"宛先HOMEPAGE", 7, leaveTextAndRefresh, &RosterSession::宛先HOMEPAGE, "宛先HOMEPAGE"},
    {"宛先EMAIL", 7, leaveText, &RosterSession::宛先EMAIL, "宛先EMAIL"},
    {"得意先コード", 7, leaveCode},
    {"納品先コード", 7, leaveCode},
    {"仕入先コード", 7, leaveCode},
    {"メーカコード", 7, leaveCode},
    {"宛先摘要", 7, leaveMemo, &RosterSession::宛先摘要},
};

const FieldRule& ruleOf(const screen::Control& field) {
    return *std::find_if(std::begin(fieldRules), std::end(fieldRules),
                         [&](const FieldRule& rule) { return rule.field == field.name; });
}

// A number and the list beside it are two views of one value.
struct ClassValue {
    screen::Control& number;
    std::int16_t RosterSession::*value;
};
ClassValue classOf(const screen::Control& part) {
    Frm連絡台帳入力& form = entryForm();
    if (&part == &form.法人個人区分 || &part == &form.法人個人区分名称)
        return {form.法人個人区分, &RosterSession::法人個人区分};
    return {form.発送区分, &RosterSession::発送区分};
}

} // namespace

void enterField(screen::Control& field) {
    rosterSession.lastEnteredField = &field;
    focusGate(field.name, ruleOf(field).order);
}

void leaveField(screen::Control& field) {
    const FieldRule& rule = ruleOf(field);
    rosterSession.lastLeftField = &field;
    rule.leave(field, rule);
}

void checkLength(screen::Control& field) {
    checkFieldLength(field.text, field.maxLength);
}

void changeClass(screen::Control& number) {
    const ClassValue shown = classOf(number);
    std::int16_t& value = rosterSession.*shown.value;
    if (value != shown.number.value) {
        rosterSession.dirty = true;
        value = static_cast<std::int16_t>(shown.number.value);
    }
    refreshScreen(); // brings the list along
}

void pickClass(screen::Control& list) {
    screen::setValue(classOf(list).number, list.listIndex);
}

// A date in another span of the register proposes another number, also for a saved addressee; the register isn't
// advanced. No number to propose leaves the one on the screen.
static void takeNumberOfDate() {
    RosterSession& s = rosterSession;
    const std::string baseDate = numberBaseDate(rosterRegister, s.名簿日付);
    const bool anotherSpan = baseDate != s.番号基準日付;
    s.番号基準日付 = baseDate;
    if (!anotherSpan && !s.newEntry) return;
    const std::string number = peekNextNumber(rosterRegister, baseDate, installation.sessionOffice);
    if (!number.empty()) s.名簿No = number;
}

void changeRosterDate() {
    RosterSession& s = rosterSession;
    s.名簿日付年 = text::zeroFilled(text::leadingNumber(s.名簿日付年), 4);
    s.名簿日付月 = text::zeroFilled(text::leadingNumber(s.名簿日付月), 2);
    s.名簿日付日 = text::zeroFilled(text::leadingNumber(s.名簿日付日), 2);
    normalizeDateParts(s.名簿日付年, s.名簿日付月, s.名簿日付日);
    s.名簿日付 = s.名簿日付年 + s.名簿日付月 + s.名簿日付日;
    takeNumberOfDate();
}

int changeRosterNo(std::string_view rosterNo) {
    if (rosterNo == rosterSession.名簿No) return 1;
    // A picked row's key is office, base date and number behind one letter; a search condition names its table.
    constexpr std::size_t keyLength = 20;
    const std::string key = text::trim(rosterSession.lookupCondition);
    const bool picked = text::length(key) == keyLength && !text::contains(key, "名簿");
    const std::string office = picked ? text::slice(key, 1, 3) : installation.sessionOffice;
    const std::string baseDate = picked ? text::slice(key, 4, 8) : rosterSession.番号基準日付;
    rosterSession.lookupCondition.clear();
    rosterSession.dirty = true;
    if (readRosterHeader(office, baseDate, rosterNo)) return -1;
    // Undone by the field's step at once; what stays is the register's own warning.
    const std::string proposed = peekNextNumber(rosterRegister, rosterSession.番号基準日付, installation.sessionOffice);
    rosterSession.名簿No = proposed.empty() ? std::string(rosterNo) : proposed;
    return 0;
}

int changeAddresseeNo(std::string_view addresseeNo) {
    if (addresseeNo == rosterSession.名簿宛先No) return 1;
    rosterSession.lookupCondition.clear();
    const bool found = readAddressee(addresseeNo);
    rosterSession.newEntry = !found;
    return found ? -1 : 0;
}

} // namespace kestrel
