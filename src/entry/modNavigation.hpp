// Moving to another record with the four step buttons. Rosters have two orders: by base date and number where numbers
// are dated, by roster date and number where they count for ever ("99999999") or no roster is shown. Addressees go by
// number.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

// True when there is one in that direction; nothing is changed.
bool findPreviousRoster();
bool findNextRoster();
bool findPreviousAddressee();
bool findNextAddressee();

// The same search, then the record found is read into the session, or what is shown there is cleared when that read
// fails. The answer is the search's.
bool movePreviousRoster();
bool moveNextRoster();
bool movePreviousAddressee();
bool moveNextAddressee();

void pressStep(screen::Control& button); // btn_前No, btn_次No, btn_前明細No, btn_次明細No

} // namespace kestrel
