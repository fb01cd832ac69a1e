#include "entry/modLookups.hpp"

#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "lists/listFrame.hpp"
#include "lists/listWindows.hpp"
#include "numbering/modNumbers.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/dates.hpp"
#include "text/numbers.hpp"

#include <algorithm>

namespace kestrel {

namespace {

// What the fields show counts here, not the session: a half-typed date or number is what the list goes by.

std::string shownOneYearBefore() {
    const Frm連絡台帳入力& form = entryForm();
    const text::Date date =
        text::dateFromParts(text::leadingNumber(form.名簿日付年.text), text::leadingNumber(form.名簿日付月.text),
                            text::leadingNumber(form.名簿日付日.text));
    return text::dateText(text::yearsLater(date, -1));
}

std::string rosterCondition() {
    const std::string& staffCode = entryForm().担当者コード.text;
    std::string condition = "T名簿.番号基準日付 <> '' AND T名簿.名簿日付 >= '" + shownOneYearBefore() + "'";
    if (!text::trim(staffCode).empty()) condition += " AND T名簿.担当者コード = '" + staffCode + "'";
    return condition;
}

std::string addresseeCondition() {
    const Frm連絡台帳入力& form = entryForm();
    const std::string date = form.名簿日付年.text + form.名簿日付月.text + form.名簿日付日.text;
    return "T名簿明細.事業所コード = '" + installation.sessionOffice + "' AND T名簿明細.番号基準日付 = '" +
           numberBaseDate(rosterRegister, date) + "' AND T名簿明細.名簿No = '" + form.名簿No.text + "'";
}

std::string noCondition() {
    return "";
}

struct Lookup {
    std::string_view trigger; // the button, or the field itself
    std::string_view field;
    const ListSpec* list;
    std::string (*condition)();
    std::string_view next;     // gets the focus behind the field
    int order = 0;             // for the gate that a double click passes
    bool staysEnabled = false; // a double click leaves the form as it is: the window is modal in any case
};

// The button of the addressee's number leads on to another field than its keys do.
constexpr Lookup lookups[] = {
    {"btn_名簿No", "名簿No", &wnd名簿No一覧, rosterCondition, "名簿宛先No"},
    {"名簿No", "名簿No", &wnd名簿No一覧, rosterCondition, "名簿宛先No", 4},
    {"btn_担当者コード", "担当者コード", &wnd担当者一覧, noCondition, "担当者名"},
    {"btn_部門コード", "部門コード", &wnd部門一覧, noCondition, "部門名"},
    {"btn_セクションコード", "セクションコード", &wndセクション一覧, noCondition, "セクション名"},
    {"btn_名簿宛先No", "名簿宛先No", &wnd名簿宛先No一覧, addresseeCondition, "宛先住所A"},
    {"名簿宛先No", "名簿宛先No", &wnd名簿宛先No一覧, addresseeCondition, "宛先名称A", 5},
    {"宛先郵便番号", "宛先郵便番号", &wnd郵便番号一覧, noCondition, "宛先住所A", 7},
    {"得意先コード", "得意先コード", &wnd得意先一覧, noCondition, "納品先コード", 7, true},
    {"納品先コード", "納品先コード", &wnd納品先一覧, noCondition, "仕入先コード", 7, true},
    {"仕入先コード", "仕入先コード", &wnd仕入先一覧, noCondition, "メーカコード", 7, true},
    {"メーカコード", "メーカコード", &wndメーカ一覧, noCondition, "btn_登録", 7, true},
};

const Lookup& lookupOf(const screen::Control& trigger) {
    return *std::find_if(std::begin(lookups), std::end(lookups),
                         [&](const Lookup& row) { return row.trigger == trigger.name; });
}

void open(const Lookup& row) {
    openList(*row.list, row.condition(), entryControl(row.field), entryControl(row.next));
}

} // namespace

void openLookup(screen::Control& trigger) {
    screen::setEnabled(entryForm().window, false);
    open(lookupOf(trigger));
}

void openLookupByDoubleClick(screen::Control& field) {
    const Lookup& row = lookupOf(field);
    if (focusGate(row.field, row.order) == -1) return;
    if (!row.staysEnabled) screen::setEnabled(entryForm().window, false);
    open(row);
    if (&field == &entryForm().宛先郵便番号) rosterSession.lastLeftField = &field;
}

} // namespace kestrel
