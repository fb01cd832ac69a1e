// The focus of the entry screen: required fields, the gate, captions and guards.
#include "entry/entryForm.hpp"
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modSaving.hpp"
#include "screen/focus.hpp"
#include "session/rosterSession.hpp"
#include "values/modTabStop.hpp"

#include <algorithm>

namespace kestrel {

namespace {

constexpr std::string_view requiredFields[] = {"名簿日付年", "名簿日付月", "名簿日付日",
                                               "名簿No",     "名簿宛先No", "宛先名称A"};
constexpr int requiredHeadFields = 5;

constexpr std::string_view namedFields[] = {
    "名簿日付年",       "名簿日付月",   "名簿日付日",   "名簿No",    "発送日付年", "発送日付月",
    "発送日付日",       "名簿名称",     "担当者コード", "担当者名",  "部門コード", "部門名",
    "セクションコード", "セクション名", "名簿宛先No",   "宛先名称A", "宛先名称B",  "宛先郵便番号",
    "宛先住所A",        "宛先住所B",    "宛先住所C",    "宛先電話",  "宛先FAX",    "法人個人区分",
    "法人個人区分名称", "宛先HOMEPAGE", "宛先EMAIL",    "宛先摘要",
};

// What a press on a caption or panel does: the gate of a field, and what stands around it.
enum class Around { focusFirstFieldAfter, enterPanelBefore };
struct Caption {
    std::string_view panel, field;
    int order;
    Around around;
};
constexpr Caption captions[] = {
    {"itm_ttl_名簿日付", "名簿日付年", 1, Around::focusFirstFieldAfter},
    {"itm_ttl_名簿名称", "名簿宛先No", 6, Around::focusFirstFieldAfter},
    {"itm_ttl_宛先名称", "宛先名称A", 6, Around::focusFirstFieldAfter},
    {"itm_ttl_宛先住所", "宛先住所A", 7, Around::enterPanelBefore},
    {"itm_ttl_宛先電話", "宛先電話", 7, Around::enterPanelBefore},
    {"itm_ttl_宛先FAX", "宛先FAX", 7, Around::enterPanelBefore},
    {"itm_ttl_法人個人区分", "法人個人区分", 7, Around::enterPanelBefore},
    {"itm_ttl_発送区分", "発送区分", 7, Around::enterPanelBefore},
    {"bak_dtla", "宛先名称A", 7, Around::enterPanelBefore},
};

bool isPartnerCode(const screen::Control* field) {
    constexpr std::string_view codes[] = {"得意先コード", "納品先コード", "仕入先コード", "メーカコード"};
    return field && std::find(std::begin(codes), std::end(codes), field->name) != std::end(codes);
}

} // namespace

int firstMissingHeadField() {
    for (int number = 1; number <= requiredHeadFields; ++number)
        if (entryControl(requiredFields[number - 1]).text.empty()) return number;
    return 0;
}

bool requiredFieldsComplete() {
    return firstMissingHeadField() == 0;
}

bool checkRequiredFields() {
    const int missing = firstMissingHeadField();
    if (missing == 0) return true;
    showNotice("必須項目が未入力です。");
    focusRequiredField(missing);
    return false;
}

void focusRequiredField(int number) {
    screen::setFocus(entryControl(requiredFields[number - 1]));
}

void focusNamedField(std::string_view field) {
    if (std::find(std::begin(namedFields), std::end(namedFields), field) != std::end(namedFields))
        screen::setFocus(entryControl(field));
}

int focusGate(std::string_view field, int order) {
    const int missing = firstMissingHeadField();
    const bool refused = missing != 0 && missing < order;
    if (refused)
        focusRequiredField(missing);
    else if (rosterSession.lastEnteredField != &entryControl(field))
        focusNamedField(field);
    updateButtons();
    return refused ? -1 : 0;
}

void moveFocus(screen::Control& control) {
    rosterSession.lookupNextControl = &control;
    nextTabStop();
    screen::Control& next = *rosterSession.lookupNextControl;
    if (next.enabled && next.tabStop) screen::setFocus(next);
}

void pressCaption(screen::Control& panel) {
    const auto row = std::find_if(std::begin(captions), std::end(captions),
                                  [&](const Caption& caption) { return caption.panel == panel.name; });
    if (row->around == Around::enterPanelBefore) rosterSession.lastEnteredField = &panel;
    const int passed = focusGate(row->field, row->order);
    if (row->around == Around::focusFirstFieldAfter && passed == 0) screen::setFocus(entryForm().宛先名称A);
}

void returnFocus(screen::Control&) {
    screen::setFocus(*rosterSession.lastLeftField);
}

// Going forward the focus comes from 名簿宛先No and enters the page shown; from anywhere else it is on its way back.
void passHeadEnd(screen::Control&) {
    Frm連絡台帳入力& form = entryForm();
    if (rosterSession.lastLeftField != &form.名簿宛先No)
        screen::setFocus(form.名簿宛先No);
    else if (form.tab_詳細.value == 0)
        screen::setFocus(form.宛先名称A);
    else if (form.tab_詳細.value == 1)
        screen::setFocus(form.宛先摘要);
}

// Moving past the last field saves a changed record: who types needs no mouse.
void passTailEnd(screen::Control&) {
    if (!isPartnerCode(rosterSession.lastLeftField)) return;
    rosterSession.lastLeftField = rosterSession.firstField;
    if (rosterSession.dirty)
        saveEntry();
    else
        screen::setFocus(*rosterSession.firstField);
}

} // namespace kestrel
