// What the desktop's own programs open: the web and mail addresses as the fields show them, and the manual. No gate
// stands before it.
#include "data/modFiles.hpp"
#include "entry/entryForm.hpp"
#include "entry/entrySteps.hpp"
#include "numbering/modOfficeSuite.hpp"
#include "screen/focus.hpp"
#include "text/characters.hpp"

namespace kestrel {

// An empty field is where the address is missing.
static void openAddress(screen::Control& field, const char* scheme) {
    if (text::trim(field.text).empty())
        screen::setFocus(field);
    else
        openWithShell(scheme + field.text);
}

void pressHomepage(screen::Control&) {
    openAddress(entryForm().宛先HOMEPAGE, "");
}

void pressMail(screen::Control&) {
    openAddress(entryForm().宛先EMAIL, "mailto:");
}

void pressManual(screen::Control&) {
    openManual();
}

} // namespace kestrel
