// What a person does, as a front end reports it. Each answers false when a person could not do it (hidden, disabled, on
// a page that isn't shown, on a blocked window): then nothing has happened.
#pragma once

#include "screen/window.hpp"

#include <string_view>

namespace kestrel::screen {

bool canPress(const Control& control);

// A press gives the control the focus first (the old field's leaving step runs), then its click runs, unless that step
// disabled it. Panels and labels only get their click.
bool press(Control& control);
// The second press of a double click: a press, then the control's doubleClick. For a button it is a press like the
// first, so that nobody who steps through records fast loses one.
bool pressAgain(Control& control);

// An edit of the field that has the focus: its whole new text, after one key or one committed conversion. Brings the
// page of the field to the front.
bool edit(Control& field, std::string_view text);

// A key on the control that has the focus. First the window's own preview, then the control's keyDown handler; then
// what the key does by itself: Tab moves on, Enter and Space press a button, Enter elsewhere the default button, Esc
// the cancel button, arrows, Home and End move in a list or drop-down. repeat: the key is held.
void key(Window& window, Key which, bool repeat = false);

bool choose(Control& dropDown, int index); // picks a row: the drop-down gets the focus, then its change event is raised
                                           // when the row is another one
bool turnPage(Control& tab, int page);     // presses the page's caption: the tab gets the focus, the page turns
// Selects the row and raises click, then doubleClick when it is the second press of two. A press beside the rows is
// press(list).
bool pressRow(Control& list, int index, bool twice = false);
bool pressHeader(Control& list, int column);
bool closeByFrame(Window& window);

} // namespace kestrel::screen
