// The entry screen as the rest of the program sees it: its life, its focus, and the ways to bring rosterSession onto
// it. The session holds the truth; a field's text counts only once its leaving step has taken it over.
#pragma once

#include "screen/control.hpp"

#include <string_view>

namespace kestrel {

// Makes the form object, unshown, and sets rosterSession.currentForm. A second call frees the one before.
void makeEntryForm();
void showEntryForm();  // not modally; its load step runs first
void giveFirstFocus(); // to 宛先名称A, whose entry step may send it on

// Every record value but the roster date and the number base date; newEntry stays true.
void clearEntry();

void showEntry();       // writes every value of rosterSession into its field
void refreshScreen();   // the same, and all that belongs to the record beside its fields
void 付属書類listint(); // the list of attachments and its buttons anew, with no row selected
void showNotice(std::string_view text);
void clearNotice();
void clearScreen(); // ready for the next addressee: a new entry, shown, with an empty notice

// Gives the focus to the control, or to the next stop in tab order when it can't take it.
void moveFocus(screen::Control& control);

// Which of the five fields that every record needs is empty on the screen: 1 to 3 the roster date, 4 名簿No, 5
// 名簿宛先No; 0 none. Their texts count as they stand, untrimmed.
int firstMissingHeadField();
bool requiredFieldsComplete();
bool checkRequiredFields(); // false: the notice says so and the focus goes to the first empty one

// Keeps the focus from jumping over an empty required field. field: the control that took the focus; order: its place
// in the order of entry, 1 to 7. Result 0, or -1 when the focus was sent back.
int focusGate(std::string_view field, int order);
void focusRequiredField(int number); // 1 to 6: the five, and 宛先名称A
void focusNamedField(std::string_view field);
void updateButtons();

// A number as it was typed and brought to its width: -1 found, 0 not found, 1 no change.
int changeRosterNo(std::string_view rosterNo);
int changeAddresseeNo(std::string_view addresseeNo);
void changeRosterDate(); // repairs the three parts in rosterSession and joins them

} // namespace kestrel
