// The steps that answer the entry screen's events; the table in entryBindings.cpp says which answers what. None of them
// runs while showEntry is writing the fields.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

// Fields
void enterField(screen::Control& field);
void leaveField(screen::Control& field);
void checkLength(screen::Control& field);
void changeClass(screen::Control& number); // the number beside a list
void pickClass(screen::Control& list);     // and its list

// Captions, panels, guards
void pressCaption(screen::Control& panel);
void returnFocus(screen::Control& panel);
void passHeadEnd(screen::Control& guard);
void passTailEnd(screen::Control& guard);

// Partners
void pressPartner(screen::Control& button);
void leavePartnerCode(screen::Control& field); // what leaving it means beyond being left

// Attachments
void pressAddFile(screen::Control& button);
void pressAddFolder(screen::Control& button);
void pressDeleteAttachment(screen::Control& button);
void openSelectedAttachment(screen::Control& list);

// The desktop's own programs
void pressHomepage(screen::Control& button);
void pressMail(screen::Control& button);
void pressManual(screen::Control& panel);

// Commands that write nothing
void pressClear(screen::Control& button);
void pressExit(screen::Control& button);

} // namespace kestrel
