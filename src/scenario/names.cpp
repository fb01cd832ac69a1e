#include "scenario/names.hpp"

#include "scenario/properties.hpp"
#include "scenario/scenario_error.hpp"
#include "text/numbers.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

using screen::Control;
using screen::Window;

namespace {

std::string inQuotes(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

Window* windowIfShown(std::string_view name) {
    return screen::findShownWindow(name);
}

Control* controlOnPresentWindow(std::string_view name) {
    return screen::shownWindows().empty() ? nullptr : screen::findControl(presentWindow(), name);
}

Control* findNamed(std::string_view name) {
    if (Control* control = controlOnPresentWindow(name)) return control;
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos) return nullptr;
    Window* window = windowIfShown(name.substr(0, dot));
    return window ? screen::findControl(*window, name.substr(dot + 1)) : nullptr;
}

// "LIST[ROW].COLUMN"
Subject cellNamed(std::string_view name, std::size_t bracket) {
    const std::size_t end = name.find("].", bracket);
    if (end == std::string_view::npos) throw ScenarioError("a cell is written NAME[ROW].COLUMN");
    Subject subject;
    subject.control = &controlNamed(name.substr(0, bracket));
    subject.cell = Cell{std::string(name.substr(bracket + 1, end - bracket - 1)), std::string(name.substr(end + 2))};
    return subject;
}

} // namespace

Window& presentWindow() {
    if (Window* active = screen::activeWindow()) return *active;
    if (screen::shownWindows().empty()) throw ScenarioError("no window is open");
    return *screen::shownWindows().back();
}

Control& controlNamed(std::string_view name) {
    if (Control* control = findNamed(name)) return *control;
    throw ScenarioError("no control " + inQuotes(name));
}

Subject subjectNamed(std::string_view name) {
    const std::size_t bracket = name.find('[');
    if (bracket != std::string_view::npos) return cellNamed(name, bracket);
    Subject subject;
    subject.control = findNamed(name);
    const std::size_t dot = name.rfind('.');
    if (subject.control || dot == std::string_view::npos) {
        if (!subject.control) throw ScenarioError("no control " + inQuotes(name));
        return subject;
    }
    subject.property = name.substr(dot + 1);
    subject.control = findNamed(name.substr(0, dot));
    if (!subject.control) subject.window = windowIfShown(name.substr(0, dot));
    if (!subject.control && !subject.window)
        throw ScenarioError("no control or window " + inQuotes(name.substr(0, dot)));
    return subject;
}

std::optional<int> position(std::string_view text) {
    if (text.size() < 2 || text.front() != '#' || !text::isWholeNumber(text.substr(1))) return std::nullopt;
    return static_cast<int>(text::wholeNumber(text.substr(1)));
}

std::optional<int> rowIndex(const Control& list, std::string_view row) {
    const auto& rows = list.rows;
    if (const auto index = position(row)) {
        if (*index >= 0 && *index < static_cast<int>(rows.size())) return index;
        return std::nullopt;
    }
    const auto found =
        std::find_if(rows.begin(), rows.end(), [row](const screen::ListRow& each) { return each.key() == row; });
    if (found == rows.end()) return std::nullopt;
    return static_cast<int>(found - rows.begin());
}

int wholeArgument(std::string_view text) {
    if (!text::isWholeNumber(text)) throw ScenarioError(inQuotes(text) + " is no number");
    return static_cast<int>(text::wholeNumber(text));
}

bool flagArgument(std::string_view text) {
    if (text != "yes" && text != "no") throw ScenarioError("a flag is yes or no, not " + inQuotes(text));
    return text == "yes";
}

screen::Key keyNamed(std::string_view name) {
    using enum screen::Key;
    struct Row {
        std::string_view name;
        screen::Key key;
    };
    constexpr std::array keys{Row{"Tab", Tab},
                              Row{"Shift+Tab", BackTab},
                              Row{"Enter", Enter},
                              Row{"Esc", Esc},
                              Row{"Ctrl", Ctrl},
                              Row{"Space", Space},
                              Row{"Up", Up},
                              Row{"Down", Down},
                              Row{"Left", Left},
                              Row{"Right", Right},
                              Row{"Home", Home},
                              Row{"End", End},
                              Row{"PageUp", PageUp},
                              Row{"PageDown", PageDown},
                              Row{"Backspace", Backspace},
                              Row{"Delete", Delete},
                              Row{"F1", F1},
                              Row{"F2", F2},
                              Row{"F3", F3},
                              Row{"F4", F4},
                              Row{"F5", F5},
                              Row{"F6", F6},
                              Row{"F7", F7},
                              Row{"F8", F8},
                              Row{"F9", F9},
                              Row{"F10", F10},
                              Row{"F11", F11},
                              Row{"F12", F12}};
    const auto found = std::find_if(keys.begin(), keys.end(), [name](const Row& row) { return row.name == name; });
    if (found == keys.end()) throw ScenarioError("no key " + inQuotes(name));
    return found->key;
}

} // namespace kestrel::scenario
