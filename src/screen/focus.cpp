#include "screen/focus.hpp"

#include "screen/ending.hpp"

#include <utility>

namespace kestrel::screen {

bool canTakeFocus(const Control& control) {
    const Window& window = *control.window;
    return takesFocus(control) && control.enabled && control.visible && window.shown && window.enabled &&
           !window.blocked;
}

// The control whose leaving step is running: a move that the step itself makes does not run it once more.
static Control* leaving = nullptr;

// False when the leaving step itself sent the focus elsewhere.
static bool leave(Window& window) {
    Control* const old = window.focus;
    if (!old || old == leaving) return true;
    Control* const outer = std::exchange(leaving, old);
    raise({*old, Event::lostFocus});
    leaving = outer;
    return window.focus == old;
}

void setFocus(Control& control) {
    if (ended()) return;
    Window& window = *control.window;
    if (window.focus == &control || !canTakeFocus(control)) return;
    if (!leave(window) || ended() || !canTakeFocus(control)) return;
    window.focus = &control;
    raise({control, Event::gotFocus});
}

static bool isPersonStop(const Control& control) {
    return takesFocus(control) && control.enabled && control.visible && control.tabStop && pageShown(control);
}

Control* nextPersonStop(Window& window, bool backward) {
    const int direction = backward ? -1 : 1;
    const int from = window.focus ? window.focus->tabIndex * direction : -1'000'000;
    Control* behind = nullptr; // the nearest one behind the focus
    Control* lowest = nullptr; // where the walk begins again
    for (Control& control : window.controls) {
        if (!isPersonStop(control) || &control == window.focus) continue;
        const int place = control.tabIndex * direction;
        if (place > from && (!behind || place < behind->tabIndex * direction)) behind = &control;
        if (!lowest || place < lowest->tabIndex * direction) lowest = &control;
    }
    return behind ? behind : lowest;
}

} // namespace kestrel::screen
