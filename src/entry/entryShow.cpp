// From rosterSession onto the screen, and emptying it.
#include "entry/entryButtons.hpp"
#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "numbering/modNumbers.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

namespace {

using Value = std::string RosterSession::*;

struct Shown {
    std::string_view field;
    Value value;
};
constexpr Shown shownValues[] = {
    {"名簿日付年", &RosterSession::名簿日付年},
    {"名簿日付月", &RosterSession::名簿日付月},
    {"名簿日付日", &RosterSession::名簿日付日},
    {"名簿No", &RosterSession::名簿No},
    {"名簿名称", &RosterSession::名簿名称},
    {"発送日付年", &RosterSession::発送日付年},
    {"発送日付月", &RosterSession::発送日付月},
    {"発送日付日", &RosterSession::発送日付日},
    {"担当者コード", &RosterSession::担当者コード},
    {"担当者名", &RosterSession::担当者名},
    {"部門コード", &RosterSession::部門コード},
    {"部門名", &RosterSession::部門名},
    {"セクションコード", &RosterSession::セクションコード},
    {"セクション名", &RosterSession::セクション名},
    {"名簿宛先No", &RosterSession::名簿宛先No},
    {"宛先名称A", &RosterSession::宛先名称A},
    {"宛先名称B", &RosterSession::宛先名称B},
    {"宛先名称C", &RosterSession::宛先名称C},
    {"宛先郵便番号", &RosterSession::宛先郵便番号},
    {"宛先住所A", &RosterSession::宛先住所A},
    {"宛先住所B", &RosterSession::宛先住所B},
    {"宛先住所C", &RosterSession::宛先住所C},
    {"宛先電話", &RosterSession::宛先電話},
    {"宛先FAX", &RosterSession::宛先FAX},
    {"宛先HOMEPAGE", &RosterSession::宛先HOMEPAGE},
    {"宛先EMAIL", &RosterSession::宛先EMAIL},
    {"得意先コード", &RosterSession::得意先コード},
    {"納品先コード", &RosterSession::納品先コード},
    {"仕入先コード", &RosterSession::仕入先コード},
    {"メーカコード", &RosterSession::メーカコード},
    {"宛先摘要", &RosterSession::宛先摘要},
};

// What a record has beyond what the screen shows; the roster date and the number base date outlive a clear.
constexpr Value hiddenValues[] = {
    &RosterSession::発送日付,       &RosterSession::得意先登録日付, &RosterSession::納品先登録日付,
    &RosterSession::仕入先登録日付, &RosterSession::メーカ登録日付, &RosterSession::宛先ID,
    &RosterSession::承認者コード,   &RosterSession::承認日付,       &RosterSession::承認区分,
    &RosterSession::登録日付,       &RosterSession::更新日付,       &RosterSession::previousRosterDate,
};

bool isRosterDate(Value value) {
    return value == &RosterSession::名簿日付年 || value == &RosterSession::名簿日付月 ||
           value == &RosterSession::名簿日付日;
}

// A value outside the choices is shown clamped; the session keeps it as it was read.
void showClass(screen::Control& number, screen::Control& list, int value) {
    screen::setValue(number, value);
    screen::setListIndex(list, number.value);
}

} // namespace

void clearEntry() {
    rosterSession.番号基準日付 = numberBaseDate(rosterRegister, rosterSession.名簿日付);
    for (const Shown& shown : shownValues)
        if (!isRosterDate(shown.value)) (rosterSession.*shown.value).clear();
    for (Value value : hiddenValues) (rosterSession.*value).clear();
    rosterSession.法人個人区分 = rosterSession.発送区分 = 0;
    rosterSession.newEntry = true;
}

void showEntry() {
    rosterSession.refreshing = true;
    for (const Shown& shown : shownValues) screen::setText(entryControl(shown.field), rosterSession.*shown.value);
    Frm連絡台帳入力& form = entryForm();
    showClass(form.法人個人区分, form.法人個人区分名称, rosterSession.法人個人区分);
    showClass(form.発送区分, form.発送区分名称, rosterSession.発送区分);
    updatePartnerButtons();
    rosterSession.refreshing = false;
}

void refreshScreen() {
    showEntry();
    付属書類listint();
}

void showNotice(std::string_view text) {
    screen::setCaption(entryForm().お知らせ, text);
}

void clearNotice() {
    showNotice("");
}

} // namespace kestrel
