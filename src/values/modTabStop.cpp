#include "values/modTabStop.hpp"

#include "session/rosterSession.hpp"

namespace kestrel {

namespace {

bool isStop(const screen::Control& control) {
    return (screen::isField(control) || screen::isButton(control)) && control.visible && control.enabled &&
           control.tabStop;
}

} // namespace

void nextTabStop() {
    if (rosterSession.currentForm == nullptr || rosterSession.lookupNextControl == nullptr) return;
    const int start = rosterSession.lookupNextControl->tabIndex;
    screen::Control* best = nullptr;
    for (screen::Control& control : rosterSession.currentForm->controls)
        if (isStop(control) && control.tabIndex >= start && (best == nullptr || best->tabIndex >= control.tabIndex))
            best = &control;
    if (best != nullptr) rosterSession.lookupNextControl = best;
}

} // namespace kestrel
