// A hand that does on a front end what a person does, and an eye that reads what the front end shows. frontend/headless
// calls the model and reads it; frontend/qt sends real mouse and key events to the widgets and reads those. Both must
// agree. A doing that a person could not do answers false.
#pragma once

#include "screen/window.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace kestrel::hand {

inline constexpr int heldRepeats = 5;

bool click(screen::Control& control); // on a list: beside its rows
bool doubleClick(screen::Control& control);
void key(screen::Key which);  // on the active window, or on the box or dialog that waits
void hold(screen::Key which); // a long press: the key and heldRepeats repeats, into whatever it opens meanwhile
void typeOver(
    std::string_view text); // selects all in the field that has the focus and types, key by key; empty: deletes
bool choose(screen::Control& dropDown, int index);
bool page(screen::Control& tab, int index);
bool row(screen::Control& list, int index, bool twice);
bool header(screen::Control& list, int column);
bool closeWindow();                    // the active window, by its frame
bool answer(std::string_view caption); // the box that waits
bool pick(std::string_view path);      // the dialog that waits
bool cancel();                         // box or dialog that waits: closes it

// Looking. Answers what is shown where it is shown.
std::string shownText(const screen::Control& control); // field: its text; drop-down: the row shown; else the caption
bool shownEnabled(const screen::Control& control);
bool shownVisible(const screen::Control& control); // as told (a control of a page that isn't shown counts as visible)
int shownValue(const screen::Control& control);    // xNum, SSTab
std::string shownCaption(const screen::Window& window);
std::string shownMessage();                                // the box that waits: its text
screen::Control* shownFocus(const screen::Window& window); // which control has the focus there
int shownRowCount(const screen::Control& list);
std::string shownCell(const screen::Control& list, int row, int column); // 0 is the row's text
int shownSelected(const screen::Control& list);

} // namespace kestrel::hand
