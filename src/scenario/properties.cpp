#include "scenario/properties.hpp"

#include "lists/listFrame.hpp"
#include "scenario/names.hpp"
#include "scenario/scenario_error.hpp"
#include "screen/hand.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

using screen::Control;
using screen::Kind;
using screen::Window;

namespace {

std::string joined(const std::vector<std::string>& parts) {
    std::string result;
    for (std::size_t i = 0; i < parts.size(); ++i) result += (i ? " | " : "") + parts[i];
    return result;
}

std::string caption(const Control& control) {
    const bool captioned = !screen::isField(control) && control.kind != Kind::ComboBox;
    return captioned ? hand::shownText(control) : control.caption;
}

std::string value(const Control& control) {
    return std::to_string(control.kind == Kind::ComboBox ? control.listIndex : hand::shownValue(control));
}

std::string selectedKey(const Control& control) {
    const int index = hand::shownSelected(control);
    return index < 0 ? "" : std::string(control.rows.at(static_cast<std::size_t>(index)).key());
}

std::string columns(const Control& control) {
    std::vector<std::string> parts;
    for (const screen::ListColumn& column : control.columns)
        parts.push_back(column.title + " " + std::to_string(column.width));
    return joined(parts);
}

// What searches go by: the held text of a search field, the number of a status. Empty for any other control.
std::string held(const Control& control) {
    const ListWindow* list = findListOf(*control.window);
    if (!list) return "";
    for (std::size_t i = 0; i < list->held.size(); ++i)
        if (list->spec.fields[i].name == control.name) return list->held[i];
    for (std::size_t i = 0; i < list->selections.size(); ++i)
        if (list->spec.statuses[i].number == control.name) return std::to_string(list->selections[i]);
    return "";
}

const ListWindow& listWindow(const Window& window) {
    const ListWindow* list = findListOf(window);
    if (!list) throw ScenarioError(window.name + " is no list window");
    return *list;
}

struct ControlProperty {
    std::string_view name;
    std::string (*read)(const Control&);
};

constexpr std::array controlProperties{
    ControlProperty{"text", [](const Control& c) { return hand::shownText(c); }},
    ControlProperty{"caption", caption},
    ControlProperty{"enabled", [](const Control& c) { return yesNo(hand::shownEnabled(c)); }},
    ControlProperty{"visible", [](const Control& c) { return yesNo(hand::shownVisible(c)); }},
    ControlProperty{"tabstop", [](const Control& c) { return yesNo(c.tabStop); }},
    ControlProperty{"tabindex", [](const Control& c) { return std::to_string(c.tabIndex); }},
    ControlProperty{"maxlength", [](const Control& c) { return std::to_string(c.maxLength); }},
    ControlProperty{"value", value},
    ControlProperty{"min", [](const Control& c) { return std::to_string(c.minValue); }},
    ControlProperty{"max", [](const Control& c) { return std::to_string(c.maxValue); }},
    ControlProperty{"kind", [](const Control& c) { return std::string(screen::kindName(c.kind)); }},
    ControlProperty{"inputmode", [](const Control& c) { return std::string(screen::inputModeName(c.inputMode)); }},
    ControlProperty{"left", [](const Control& c) { return std::to_string(c.place.left); }},
    ControlProperty{"top", [](const Control& c) { return std::to_string(c.place.top); }},
    ControlProperty{"width", [](const Control& c) { return std::to_string(c.place.width); }},
    ControlProperty{"height", [](const Control& c) { return std::to_string(c.place.height); }},
    ControlProperty{"color", [](const Control& c) { return c.color ? std::to_string(*c.color) : "default"; }},
    ControlProperty{"items", [](const Control& c) { return joined(c.items); }},
    ControlProperty{"rows", [](const Control& c) { return std::to_string(hand::shownRowCount(c)); }},
    ControlProperty{"selected", selectedKey},
    ControlProperty{"columns", columns},
    ControlProperty{"sortkey", [](const Control& c) { return std::to_string(c.sortKey); }},
    ControlProperty{"sortorder",
                    [](const Control& c) {
                        return std::string(c.sortOrder == screen::SortOrder::ascending ? "ascending" : "descending");
                    }},
    ControlProperty{"sorted", [](const Control& c) { return yesNo(c.sorted); }},
    ControlProperty{"held", held},
};

struct WindowProperty {
    std::string_view name;
    std::string (*read)(const Window&);
};

constexpr std::array windowProperties{
    WindowProperty{"caption", [](const Window& w) { return hand::shownCaption(w); }},
    WindowProperty{"enabled", [](const Window& w) { return yesNo(w.enabled); }},
    WindowProperty{"visible", [](const Window& w) { return yesNo(w.shown); }},
    WindowProperty{"width", [](const Window& w) { return std::to_string(w.width); }},
    WindowProperty{"height", [](const Window& w) { return std::to_string(w.height); }},
    WindowProperty{"querySql", [](const Window& w) { return listWindow(w).querySql; }},
    WindowProperty{"searchMode", [](const Window& w) { return std::to_string(listWindow(w).searchMode); }},
};

struct WritableProperty {
    std::string_view name;
    void (*write)(Control&, std::string_view);
};

constexpr std::array writableProperties{
    WritableProperty{"enabled", [](Control& c, std::string_view v) { screen::setEnabled(c, flagArgument(v)); }},
    WritableProperty{"visible", [](Control& c, std::string_view v) { screen::setVisible(c, flagArgument(v)); }},
    WritableProperty{"tabstop", [](Control& c, std::string_view v) { screen::setTabStop(c, flagArgument(v)); }},
    WritableProperty{"maxlength", [](Control& c, std::string_view v) { c.maxLength = wholeArgument(v); }},
};

template <class Row, std::size_t n> const Row& rowNamed(const std::array<Row, n>& rows, std::string_view name) {
    const auto found = std::find_if(rows.begin(), rows.end(), [name](const Row& row) { return row.name == name; });
    if (found == rows.end()) throw ScenarioError("no property \"" + std::string(name) + "\" here");
    return *found;
}

} // namespace

std::string yesNo(bool flag) {
    return flag ? "yes" : "no";
}

std::string readProperty(const Control& control, std::string_view property) {
    return rowNamed(controlProperties, property).read(control);
}

std::string readProperty(const Window& window, std::string_view property) {
    return rowNamed(windowProperties, property).read(window);
}

std::vector<std::string_view> controlPropertyNames() {
    std::vector<std::string_view> names;
    for (const ControlProperty& row : controlProperties) names.push_back(row.name);
    return names;
}

void writeProperty(Control& control, std::string_view property, std::string_view value) {
    rowNamed(writableProperties, property).write(control, value);
}

} // namespace kestrel::scenario
