// Expectations about windows, controls and the box that waits.
#include "scenario/names.hpp"
#include "scenario/properties.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "text/characters.hpp"
#include "text/quoting.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

namespace {

Finding compared(const std::string& there, const std::string& expected) {
    return {there == expected, text::quoted(there)};
}

std::string cellText(const screen::Control& list, int row, const std::string& column) {
    const screen::ListRow& record = list.rows.at(static_cast<std::size_t>(row));
    if (column == "key") return std::string(record.key());
    if (column == "flag") return yesNo(record.flag());
    return hand::shownCell(list, row, wholeArgument(column));
}

Finding lookAtCell(const Subject& subject, const std::string& expected) {
    const screen::Control& list = *subject.control;
    if (list.kind != screen::Kind::ListView) throw ScenarioError(list.name + " is no list");
    const auto row = rowIndex(list, subject.cell->row);
    if (!row) return {false, "no such row"};
    return compared(cellText(list, *row, subject.cell->column), expected);
}

Finding lookAtSubject(const Arguments& arguments) {
    const Subject subject = subjectNamed(arguments[0]);
    const std::string& expected = arguments[1];
    if (subject.cell) return lookAtCell(subject, expected);
    if (subject.window) return compared(readProperty(*subject.window, subject.property), expected);
    return compared(readProperty(*subject.control, subject.property.empty() ? "text" : subject.property), expected);
}

Finding noControl(const Arguments& arguments) {
    const bool there = screen::findControl(presentWindow(), arguments[0]) != nullptr;
    return {!there, there ? "the control" : "none"};
}

Finding focus(const Arguments& arguments) {
    const std::size_t dot = arguments[0].find('.');
    const screen::Control& control = controlNamed(arguments[0]);
    const screen::Window& window = dot == std::string::npos ? presentWindow() : *control.window;
    const screen::Control* there = hand::shownFocus(window);
    return {there == &control, there ? there->name : "no focus"};
}

Finding window(const Arguments& arguments) {
    const screen::Window* active = screen::activeWindow();
    return {active && active->name == arguments[0], active ? active->name : "no active window"};
}

// The line of short feedback, on the topmost window that has one.
const screen::Control& noticeLine() {
    const auto& windows = screen::shownWindows();
    for (auto each = windows.rbegin(); each != windows.rend(); ++each)
        for (const screen::Control& control : (*each)->controls)
            if (control.notice) return control;
    throw ScenarioError("no open window has a notice line");
}

Finding notice(const Arguments& arguments) {
    return compared(hand::shownText(noticeLine()), arguments[0]);
}

const screen::MessageBox* boxThatWaits() {
    const screen::Waiting* wait = screen::waiting();
    return wait && wait->kind == screen::Waiting::Kind::box ? &wait->box : nullptr;
}

Finding message(const Arguments& arguments) {
    if (!boxThatWaits()) return {false, "no message"};
    return compared(hand::shownMessage(), arguments[0]);
}

Finding messageLike(const Arguments& arguments) {
    if (!boxThatWaits()) return {false, "no message"};
    const std::string there = hand::shownMessage();
    return {text::contains(there, arguments[0]), text::quoted(there)};
}

Finding noMessage(const Arguments&) {
    return {!boxThatWaits(), boxThatWaits() ? text::quoted(hand::shownMessage()) : "no message"};
}

Finding buttons(const Arguments& arguments) {
    const screen::MessageBox* box = boxThatWaits();
    if (!box) return {false, "no message"};
    const std::string there = screen::buttonsText(*box);
    return {there == arguments[0], there};
}

constexpr std::array expectations{
    Expectation{"", "wt", lookAtSubject},
    Expectation{"no control", "w", noControl},
    Expectation{"focus", "w", focus},
    Expectation{"window", "w", window},
    Expectation{"notice", "t", notice},
    Expectation{"message", "t", message},
    Expectation{"message like", "t", messageLike},
    Expectation{"no message", "", noMessage},
    Expectation{"buttons", "l", buttons},
};

} // namespace

std::span<const Expectation> screenExpectations() {
    return expectations;
}

} // namespace kestrel::scenario
