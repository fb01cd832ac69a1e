#include "entry/entryButtons.hpp"

#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modPartners.hpp"
#include "entry/modSaving.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

// A partner can be made once, and only from a saved addressee.
void updatePartnerButtons() {
    for (const Partner& partner : partners())
        screen::setEnabled(entryControl(partner.button),
                           (rosterSession.*partner.madeOn).empty() && !rosterSession.newEntry);
}

void updateButtons() {
    Frm連絡台帳入力& form = entryForm();
    const bool saved = !rosterSession.newEntry;
    screen::setEnabled(form.btn_登録, requiredFieldsComplete());
    screen::setEnabled(form.btn_削除, saved && referenceCount() < 1);
    screen::setEnabled(form.btn_印刷, saved);
    screen::setEnabled(form.btn_プレビュ, saved);
}

} // namespace kestrel
