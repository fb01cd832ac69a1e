// Saving and deleting the addressee on the screen.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

void saveEntry();     // the whole sequence: required fields, write, clear for the next
int referenceCount(); // 1 or more forbids the delete; here always -1
void writeEntry();    // insert or replace, by rosterSession.newEntry

void pressSave(screen::Control& button);   // btn_登録
void pressDelete(screen::Control& button); // btn_削除

} // namespace kestrel
