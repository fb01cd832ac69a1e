// Which of the screen's buttons are live.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

void disableAbsentActions();
void enableButton(screen::Control& button, bool wanted); // stays off while its action doesn't exist
void updatePartnerButtons();

} // namespace kestrel
