#include "frontend/qt/accessible.hpp"

#include "frontend/qt/text.hpp"
#include "frontend/qt/views.hpp"

namespace kestrel::frontend {

namespace {

using screen::Control;
using screen::Kind;

bool captions(const Control& control) {
    const bool kind = control.kind == Kind::SSPanel || control.kind == Kind::xLabel || control.kind == Kind::SSCommand;
    return kind && !control.guard && !control.notice && !control.caption.empty();
}

bool beginsBefore(const Control& caption, const Control& field) {
    return caption.tab == field.tab && caption.page == field.page && caption.place.left < field.place.left &&
           caption.place.top <= field.place.top + field.place.height / 2;
}

// The caption before a field: the nearest on its line, else the nearest above that begins left of it. A line counts far
// more than a distance along it.
int distance(const Control& caption, const Control& field) {
    const int below = std::max(0, field.place.top - (caption.place.top + caption.place.height / 2));
    return below * 100 + (field.place.left - caption.place.left);
}

const Control* captionOf(const Control& field) {
    const Control* nearest = nullptr;
    for (const Control& other : field.window->controls) {
        if (!captions(other) || !beginsBefore(other, field)) continue;
        if (!nearest || distance(other, field) < distance(*nearest, field)) nearest = &other;
    }
    return nearest;
}

std::string spokenName(const Control& control) {
    if (!control.caption.empty()) return control.caption;
    const Control* caption = takesFocus(control) ? captionOf(control) : nullptr;
    return caption ? caption->caption : control.name;
}

} // namespace

void nameForAssistance(screen::Window& window) {
    for (const Control& control : window.controls) {
        QWidget* widget = widgetOf(control);
        if (!widget) continue;
        widget->setAccessibleName(shownText(spokenName(control)));
        widget->setAccessibleDescription(shownText(control.name));
    }
}

} // namespace kestrel::frontend
