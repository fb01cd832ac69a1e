#include "lists/listEvents.hpp"

#include "lists/listQuery.hpp"
#include "screen/focus.hpp"
#include "screen/sorting.hpp"
#include "session/rosterSession.hpp"
#include "text/characters.hpp"
#include "values/modTabStop.hpp"
#include "values/modValues.hpp"

#include <algorithm>

namespace kestrel {

using screen::Control;
using screen::Event;
using screen::Occurrence;

namespace {

ListWindow& listOf(const Control& control) {
    return kestrel::listOf(*control.window);
}

const ListField& fieldOf(const ListSpec& spec, const Control& control) {
    return spec.fields[fieldIndex(spec, control.name)];
}

// A telephone number or postal code is there when it has a digit.
bool goesByDigits(const ListField& field) {
    return field.leaving == Leaving::telephone || field.leaving == Leaving::postalCode;
}

// Search buttons

bool showsSomething(ListWindow& list, std::string_view field) {
    const ListField& row = list.spec.fields[fieldIndex(list.spec, field)];
    const std::string& text = controlOf(list, field).text;
    return goesByDigits(row) ? !digitsOnly(text).empty() : !text::trim(text).empty();
}

void updateSearchButton(ListWindow& list, const SearchMode& mode) {
    if (!mode.field.empty()) screen::setEnabled(controlOf(list, mode.button), showsSomething(list, mode.field));
}

void updateSearchButtons(ListWindow& list) {
    for (const SearchMode& mode : list.spec.modes) updateSearchButton(list, mode);
    screen::setEnabled(controlOf(list, "btn_複合検索"), true);
}

void fieldChanged(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    if (list.spec.liveButtons == LiveButtons::ofAllFields) return updateSearchButtons(list);
    for (const SearchMode& mode : list.spec.modes)
        if (mode.field == occurrence.control.name) updateSearchButton(list, mode);
}

// Leaving a field

// The value that the field's text stands for; the old one when it has no digit where digits are wanted.
std::string valueOf(const ListField& field, const std::string& text, const std::string& held) {
    if (goesByDigits(field) && (digitsOnly(text).empty() || text == held)) return held;
    if (field.leaving == Leaving::postalCode) return normalizeTelephone(text);
    return field.leaving == Leaving::code ? formatToMask(text, field.mask) : text;
}

void fieldLeft(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const ListField& field = fieldOf(list.spec, occurrence.control);
    std::string& held = heldValue(list, field.name);
    const std::string value = valueOf(field, occurrence.control.text, held);
    if (value != held) {
        held = value;
        if (field.nameOf) heldValue(list, field.nameField) = field.nameOf(value);
        showFields(list);
    }
    if (list.spec.checksButtonsOnLeaving) updateSearchButtons(list);
}

// Taking the focus

void arm(const Occurrence& occurrence) {
    rosterSession.lastEnteredField = &occurrence.control;
}

// The walk runs over the entry form, whose controls can't take the focus from here; so the window goes on by itself.
void passOn(const Occurrence& occurrence) {
    rosterSession.lookupNextControl = &occurrence.control;
    nextTabStop();
    screen::setFocus(*rosterSession.lookupNextControl);
    screen::Window& window = *occurrence.control.window;
    if (window.focus != &occurrence.control) return;
    if (Control* next = screen::nextPersonStop(window, false)) screen::setFocus(*next);
}

// Status pairs

const StatusPair& statusOf(const ListSpec& spec, std::string_view StatusPair::*part, const Control& control) {
    return *std::find_if(spec.statuses.begin(), spec.statuses.end(),
                         [&](const StatusPair& status) { return status.*part == control.name; });
}

void numberChanged(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const StatusPair& status = statusOf(list.spec, &StatusPair::number, occurrence.control);
    screen::setListIndex(controlOf(list, status.dropDown), occurrence.control.value);
    list.selections[statusIndex(list.spec, status.number)] = occurrence.control.value;
}

void statusChosen(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const StatusPair& status = statusOf(list.spec, &StatusPair::dropDown, occurrence.control);
    screen::setValue(controlOf(list, status.number), occurrence.control.listIndex);
}

// Lists of codes

const NestedList& nestedOf(const ListSpec& spec, std::string_view NestedList::*part, const Control& control) {
    return *std::find_if(spec.nested.begin(), spec.nested.end(),
                         [&](const NestedList& nested) { return nested.*part == control.name; });
}

void openByButton(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    openNestedList(list, nestedOf(list.spec, &NestedList::button, occurrence.control));
}

// The first press only arms the field. Names are compared, so that a field of that name in another window arms it too.
void openByKey(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const Control* last = rosterSession.lastEnteredField;
    if (last && last->name == occurrence.control.name)
        openNestedList(list, nestedOf(list.spec, &NestedList::field, occurrence.control));
    rosterSession.lastEnteredField = &occurrence.control;
}

void keyInCode(const Occurrence& occurrence) {
    if (occurrence.key == screen::Key::Ctrl) openByKey(occurrence);
}

// Commands

void search(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const auto mode = std::find_if(list.spec.modes.begin(), list.spec.modes.end(),
                                   [&](const SearchMode& row) { return row.button == occurrence.control.name; });
    list.searchMode = mode->number;
    runSearch(list);
    screen::setFocus(rowsOf(list));
}

void clear(const Occurrence& occurrence) {
    ListWindow& list = listOf(occurrence.control);
    const ClearRule& rule = list.spec.clear;
    if (rule.forgetsCondition) rosterSession.lookupCondition.clear();
    if (rule.forgetsSearch) list.searchMode = compoundSearch;
    if (rule.emptiesFields) {
        readCondition(list);
        showFields(list);
    }
    if (!rule.searches) return;
    runSearch(list);
    screen::setFocus(rowsOf(list));
}

void pick(const Occurrence& occurrence) {
    closeByPick(listOf(occurrence.control));
}

void keyInRows(const Occurrence& occurrence) {
    if (occurrence.key == screen::Key::Enter) pick(occurrence);
}

void back(const Occurrence& occurrence) {
    closeByBack(listOf(occurrence.control));
}

// The column that is the key already turns the order; another one keeps it.
void sortColumn(const Occurrence& occurrence) {
    using enum screen::SortOrder;
    Control& rows = occurrence.control;
    const bool turns = rows.sortKey == occurrence.column;
    const screen::SortOrder turned = rows.sortOrder == ascending ? descending : ascending;
    screen::sortBy(rows, occurrence.column, turns ? turned : rows.sortOrder);
}

// The table of a window

class Table {
public:
    explicit Table(const ListWindow& itsList) : list(itsList) {}

    // The row keeps the control's own name, which lives as long as the window.
    void add(std::string_view name, Event event, screen::Handler handler) {
        for (const Control& control : list.window.controls)
            if (control.name == name) rows.push_back({control.name, event, handler});
    }

    std::vector<screen::Binding> rows;

private:
    const ListWindow& list;
};

void bindField(Table& table, const ListField& field) {
    table.add(field.name, Event::change, fieldChanged);
    if (field.leaving == Leaving::passedOn)
        table.add(field.name, Event::gotFocus, passOn);
    else
        table.add(field.name, Event::lostFocus, fieldLeft);
}

void bindStatus(Table& table, const StatusPair& status) {
    table.add(status.number, Event::change, numberChanged);
    table.add(status.dropDown, Event::change, statusChosen);
}

void bindNested(Table& table, const NestedList& nested) {
    table.add(nested.field, Event::keyDown, keyInCode);
    table.add(nested.field, Event::doubleClick, openByKey);
    table.add(nested.button, Event::click, openByButton);
}

void bindRows(Table& table, const std::string& rows) {
    table.add(rows, Event::click, pick);
    table.add(rows, Event::keyDown, keyInRows);
    table.add(rows, Event::columnClick, sortColumn);
}

} // namespace

std::vector<screen::Binding> listBindings(const ListWindow& list) {
    const ListSpec& spec = list.spec;
    Table table(list);
    for (const ListField& field : spec.fields) bindField(table, field);
    for (const StatusPair& status : spec.statuses) bindStatus(table, status);
    for (const NestedList& nested : spec.nested) bindNested(table, nested);
    for (const SearchMode& mode : spec.modes) table.add(mode.button, Event::click, search);
    for (std::string_view name : spec.arming) table.add(name, Event::gotFocus, arm);
    bindRows(table, worded(spec, spec.list));
    table.add("btn_画面クリア", Event::click, clear);
    table.add("btn_戻る", Event::click, back);
    return table.rows;
}

bool listKey(screen::Window& window, screen::Key which) {
    if (which != screen::Key::Esc) return false;
    closeByBack(kestrel::listOf(window));
    return true;
}

} // namespace kestrel
