#include "screen/hand.hpp"
#include "screen/message.hpp"

namespace kestrel::hand {

using screen::Control;
using screen::Kind;

static std::string chosenItem(const Control& dropDown) {
    return dropDown.listIndex < 0 ? std::string() : dropDown.items[static_cast<std::size_t>(dropDown.listIndex)];
}

std::string shownText(const Control& control) {
    if (control.kind == Kind::ComboBox) return chosenItem(control);
    return screen::isField(control) ? control.text : control.caption;
}

bool shownEnabled(const Control& control) {
    return control.enabled;
}

bool shownVisible(const Control& control) {
    return control.visible;
}

int shownValue(const Control& control) {
    return control.value;
}

std::string shownCaption(const screen::Window& window) {
    return window.caption;
}

std::string shownMessage() {
    const screen::Waiting* wait = screen::waiting();
    return wait ? wait->box.text : std::string();
}

Control* shownFocus(const screen::Window& window) {
    return window.focus;
}

int shownRowCount(const Control& list) {
    return static_cast<int>(list.rows.size());
}

std::string shownCell(const Control& list, int row, int column) {
    return std::string(list.rows.at(static_cast<std::size_t>(row)).cell(static_cast<std::size_t>(column)));
}

int shownSelected(const Control& list) {
    return list.selected;
}

} // namespace kestrel::hand
