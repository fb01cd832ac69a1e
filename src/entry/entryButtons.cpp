#include "entry/entryButtons.hpp"

#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modPartners.hpp"
#include "entry/modSaving.hpp"
#include "session/rosterSession.hpp"

#include <algorithm>
#include <array>

namespace kestrel {

namespace {

// Buttons whose action the program doesn't have; they stand in their place, disabled.
constexpr std::string_view absentActions[] = {
    "btn_名簿No", "btn_担当者コード", "btn_部門コード", "btn_セクションコード", "btn_名簿宛先No",
};

bool actionExists(std::string_view button) {
    return std::find(std::begin(absentActions), std::end(absentActions), button) == std::end(absentActions);
}

} // namespace

void disableAbsentActions() {
    for (std::string_view button : absentActions) screen::setEnabled(entryControl(button), false);
}

void enableButton(screen::Control& button, bool wanted) {
    screen::setEnabled(button, wanted && actionExists(button.name));
}

// A partner can be made once, and only from a saved addressee.
void updatePartnerButtons() {
    for (const Partner& partner : partners())
        enableButton(entryControl(partner.button), (rosterSession.*partner.madeOn).empty() && !rosterSession.newEntry);
}

void updateButtons() {
    Frm連絡台帳入力& form = entryForm();
    const bool saved = !rosterSession.newEntry;
    enableButton(form.btn_登録, requiredFieldsComplete());
    enableButton(form.btn_削除, saved && referenceCount() < 1);
    enableButton(form.btn_印刷, saved);
    enableButton(form.btn_プレビュ, saved);
}

} // namespace kestrel
