// From a name as a scenario writes it to the window, control, property or cell that it means. Unknown names raise
// ScenarioError.
#pragma once

#include "screen/window.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace kestrel::scenario {

// The active window; where a person can use none, the topmost.
screen::Window& presentWindow();
screen::Control& controlNamed(std::string_view name); // NAME on the active window, or WINDOW.CONTROL

struct Cell {
    std::string row;    // a Key, or "#n"
    std::string column; // a number from 0, "key" or "flag"
};

// What a look is about: a control, its property or a cell of it; or a property of a window.
struct Subject {
    screen::Window* window = nullptr; // set when it is a property of the window
    screen::Control* control = nullptr;
    std::string property; // empty: the control's text
    std::optional<Cell> cell;
};
Subject subjectNamed(std::string_view name);

// Index of the row with that Key, or at "#n"; nothing when the list has no such row.
std::optional<int> rowIndex(const screen::Control& list, std::string_view row);

// A position written "#n"; nothing when the text is none.
std::optional<int> position(std::string_view text);
int wholeArgument(std::string_view text); // raises ScenarioError when it is no number
bool flagArgument(std::string_view text); // "yes" or "no"

screen::Key keyNamed(std::string_view name); // "Tab", "Shift+Tab", "F1"…

} // namespace kestrel::scenario
