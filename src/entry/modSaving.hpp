// Saving and deleting the addressee on the screen, and the window of dates in which a record may be touched.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

void saveEntry();      // the whole sequence: right, dates, required fields, question, write, print, clear
int checkDateWindow(); // -1 allowed, 0 refused
int referenceCount();  // 1 or more forbids the delete; here always -1
void writeEntry();     // insert or replace, by rosterSession.newEntry

void pressSave(screen::Control& button);   // btn_登録
void pressDelete(screen::Control& button); // btn_削除

} // namespace kestrel
