// The addressee's card, printed or previewed by the companion program.
#pragma once

#include "screen/control.hpp"

#include <string>

namespace kestrel {

// The 51 characters that tell the companion what to do, built from the session as it stands: office, flag, then roster
// number, addressee number and staff code twice each, at fixed widths.
std::string reportParameters(char flag);

void printCard();   // starts the companion and doesn't wait; a message when it can't be started
void previewCard(); // likewise

void pressPrint(screen::Control& button);   // btn_印刷
void pressPreview(screen::Control& button); // btn_プレビュ

} // namespace kestrel
