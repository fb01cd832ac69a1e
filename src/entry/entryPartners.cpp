// The four partner buttons and the code fields beside them.
#include "entry/entryForm.hpp"
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modPartners.hpp"
#include "screen/message.hpp"
#include "values/modValues.hpp"

#include <algorithm>

namespace kestrel {

static const Partner& partnerOf(std::string_view Partner::*control, std::string_view name) {
    return *std::ranges::find_if(partners(), [&](const Partner& partner) { return partner.*control == name; });
}

// A code that was assigned and then declined stays. The addressee isn't saved here: that is the person's next step.
void pressPartner(screen::Control& button) {
    const Partner& partner = partnerOf(&Partner::button, button.name);
    const screen::Control& field = entryControl(partner.codeField);
    if (field.text.empty()) {
        assignPartnerCode(partner);
        refreshScreen();
    }
    if (!field.text.empty() && screen::question(partner.question)) registerPartner(partner);
    refreshScreen();
    updateButtons();
}

// A code without its partner is put back: a new code can't be chosen by hand.
void leavePartnerCode(screen::Control& field) {
    const Partner& partner = partnerOf(&Partner::codeField, field.name);
    const std::string code = formatToMask(field.text, "000000");
    if (code == rosterSession.*partner.code) return;
    rosterSession.dirty = true;
    const bool found = linkPartner(partner, code);
    refreshScreen();
    showNotice(found ? "登録済みコードです。" : "新規情報として登録可能です。");
}

} // namespace kestrel
