// Looking without expecting anything: what stands on the screen, in the session, in the databases.
#include "scenario/databases.hpp"
#include "scenario/names.hpp"
#include "scenario/properties.hpp"
#include "scenario/report.hpp"
#include "scenario/session_values.hpp"
#include "scenario/tables.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "text/quoting.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

using screen::Control;

namespace {

void showRows(const Control& list) {
    for (int row = 0; row < hand::shownRowCount(list); ++row) {
        const screen::ListRow& record = list.rows.at(static_cast<std::size_t>(row));
        std::string line = "    " + std::string(record.key()) + ":" + (record.flag() ? " *" : "");
        for (int column = 0; column < static_cast<int>(record.columnCount()); ++column)
            line += (column ? " | " : " ") + hand::shownCell(list, row, column);
        writeLine(line);
    }
}

void showBriefly(const Control& control) {
    std::string line = "  " + control.name + " " + std::string(screen::kindName(control.kind)) + " " +
                       text::quoted(hand::shownText(control));
    if (!hand::shownEnabled(control)) line += " disabled";
    if (!hand::shownVisible(control)) line += " hidden";
    writeLine(line);
    if (control.kind == screen::Kind::ListView) showRows(control);
}

// Controls without a place in the tab order come last, in the order in which they were made.
std::vector<const Control*> inTabOrder(const screen::Window& window) {
    std::vector<const Control*> controls;
    for (const Control& control : window.controls) controls.push_back(&control);
    const auto place = [](const Control* control) { return static_cast<unsigned>(control->tabIndex); };
    std::stable_sort(controls.begin(), controls.end(),
                     [&](const Control* a, const Control* b) { return place(a) < place(b); });
    return controls;
}

void showWindow(const Arguments&) {
    const screen::Window& window = presentWindow();
    writeLine("window " + window.name + " " + text::quoted(hand::shownCaption(window)));
    const Control* focus = hand::shownFocus(window);
    writeLine("focus " + (focus ? focus->name : "NULL"));
    for (const Control& control : window.controls)
        if (control.notice) writeLine("notice " + text::quoted(hand::shownText(control)));
    for (const Control* control : inTabOrder(window)) showBriefly(*control);
    if (const screen::Waiting* wait = screen::waiting(); wait && wait->kind == screen::Waiting::Kind::box)
        writeLine("message " + text::quoted(hand::shownMessage()) + " " + screen::buttonsText(wait->box));
}

void showControl(const Arguments& arguments) {
    const Control& control = controlNamed(arguments[0]);
    writeLine(control.name);
    for (std::string_view property : controlPropertyNames())
        writeLine("  " + std::string(property) + " " + text::quoted(readProperty(control, property)));
    if (control.kind == screen::Kind::ListView) showRows(control);
}

void show(const Arguments& arguments) {
    arguments.empty() ? showWindow(arguments) : showControl(arguments);
}

void showSession(const Arguments&) {
    for (const std::string& name : sessionValueNames()) writeLine(name + " " + text::quoted(readSessionValue(name)));
}

void query(const Arguments& arguments) {
    std::string sql = arguments[1];
    const Which which = databaseNamed(arguments[0], sql);
    for (const auto& row : rowsBeside(which, sql)) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) line += (i ? " | " : "") + row[i];
        writeLine(line);
    }
}

void execute(const char* database, const Arguments& arguments) {
    std::string sql = arguments[0];
    const Which which = databaseNamed(database, sql);
    executeBeside(which, sql);
}

constexpr std::array looks{
    Verb{"show", "o", anytime, show},
    Verb{"show session", "", anytime, showSession},
    Verb{"query", "wq", anytime, query},
};

constexpr std::array statements{
    Verb{"main", "q", anytime, [](const Arguments& a) { execute("main", a); }},
    Verb{"local", "q", anytime, [](const Arguments& a) { execute("local", a); }},
};

} // namespace

std::span<const Verb> lookVerbs() {
    return looks;
}

std::span<const Verb> databaseVerbs() {
    return statements;
}

} // namespace kestrel::scenario
