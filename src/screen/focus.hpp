// The focus. One control a window; moves run at once and may nest, there is no queue.
#pragma once

#include "screen/window.hpp"

namespace kestrel::screen {

bool canTakeFocus(
    const Control& control); // its kind does, it is enabled and visible, its window shown, enabled, not blocked

// The control has it already: nothing. It can't take it: nothing, no error. Else the leaving step of the old control
// runs to its end; if that moved the focus, stop; else the control has the focus and its entry step runs.
void setFocus(Control& control);

// The next (or previous) stop for a person's Tab key: by tab index, only what can take the focus, is a tab stop and
// stands on a page that is shown; wraps. Null when there is none.
Control* nextPersonStop(Window& window, bool backward);

} // namespace kestrel::screen
