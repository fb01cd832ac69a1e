#include "lists/listFrame.hpp"

#include "data/modGateway.hpp"
#include "lists/listEvents.hpp"
#include "screen/focus.hpp"
#include "session/rosterSession.hpp"
#include "text/characters.hpp"
#include "values/modTabStop.hpp"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace kestrel {

using screen::Control;
using screen::Kind;

namespace {

constexpr int fieldHeight = 315, labelHeight = 255, titleHeight = 375;
constexpr int margin = 120; // beneath a list, and beneath the lowest button

// Never destroyed at the end of the process: the windows that would be taken leave of may be gone by then.
std::vector<std::unique_ptr<ListWindow>>& slots() {
    static auto* windows = new std::vector<std::unique_ptr<ListWindow>>;
    return *windows;
}

[[noreturn]] void hasNo(std::string_view window, std::string_view name) {
    throw std::logic_error(std::string(window) + " has no " + std::string(name));
}

const ListControl& rowOf(const ListSpec& spec, std::string_view name) {
    const auto found = std::find_if(spec.controls.begin(), spec.controls.end(),
                                    [name](const ListControl& row) { return row.name == name; });
    if (found == spec.controls.end()) hasNo(spec.name, name);
    return *found;
}

int backTop(const ListSpec& spec) {
    return rowOf(spec, "btn_戻る").top;
}

int heightOf(const ListSpec& spec, const ListControl& row) {
    if (row.kind == Kind::ListView) return backTop(spec) - margin - row.top;
    if (row.name == "wnd_ttl") return titleHeight;
    return row.kind == Kind::xLabel ? labelHeight : fieldHeight;
}

bool showsName(const ListSpec& spec, const ListControl& row) {
    return std::any_of(spec.fields.begin(), spec.fields.end(), [&](const ListField& field) {
        return field.name == row.name && field.leaving == Leaving::passedOn;
    });
}

void addControl(ListWindow& list, const ListControl& row) {
    const ListSpec& spec = list.spec;
    screen::addControl(list.window, {.name = worded(spec, row.name),
                                     .kind = row.kind,
                                     .caption = worded(spec, row.caption),
                                     .place = {row.left, row.top, row.width, heightOf(spec, row)},
                                     .tabIndex = row.tabIndex,
                                     .tabStop = !showsName(spec, row),
                                     .maxLength = row.maxLength,
                                     .inputMode = row.inputMode});
}

void makeWindow(ListWindow& list) {
    const ListSpec& spec = list.spec;
    for (const ListControl& row : spec.controls) addControl(list, row);
    const Control& title = controlOf(list, "wnd_ttl");
    screen::setSize(list.window, title.place.width, backTop(spec) + fieldHeight + margin);
    screen::setCaption(list.window, title.caption);
}

void fillStatus(ListWindow& list, const StatusPair& status) {
    std::vector<std::string> names;
    database::RecordSet classes;
    if (openRecordset(classes, "SELECT * FROM " + std::string(status.table) + " ORDER BY 区分", false))
        for (; !classes.eof(); classes.moveNext()) names.push_back(classes.text("名称", ""));
    classes.close();
    screen::setBounds(controlOf(list, status.number), 0, static_cast<int>(names.size()));
    names.emplace_back("全て");
    screen::setItems(controlOf(list, status.dropDown), std::move(names));
}

void loadSelections(ListWindow& list) {
    for (const StatusPair& status : list.spec.statuses) fillStatus(list, status);
    for (std::size_t i = 0; i < list.selections.size(); ++i) list.selections[i] = list.spec.statuses[i].initial;
}

void setUpColumns(ListWindow& list) {
    std::vector<screen::ListColumn> columns;
    for (const ListWindowColumn& column : list.spec.columns)
        columns.push_back({std::string(column.title), column.width});
    screen::setColumns(rowsOf(list), std::move(columns));
    list.searchMode = compoundSearch;
    runSearch(list);
}

void load(screen::Window& window) {
    ListWindow& list = listOf(window);
    loadSelections(list);
    readCondition(list);
    if (list.spec.prepare) list.spec.prepare(list);
    showFields(list);
    setUpColumns(list);
    screen::setSelected(rowsOf(list), -1);
}

// The controls stay, since lastEnteredField may still point to one of them.
void emptyControl(Control& control) {
    control.text = control.kind == Kind::xNum ? "0" : "";
    control.enabled = control.visible = true;
    control.value = control.minValue = control.maxValue = 0;
    control.listIndex = -1;
    control.items.clear();
    control.rows = std::vector<screen::ListRow>(); // gives the memory back
    ++control.rowsRevision;
    control.selected = -1;
    control.sortKey = 0;
    control.sortOrder = screen::SortOrder::ascending;
    control.sorted = false;
}

void forgetState(ListWindow& list) {
    for (Control& control : list.window.controls) emptyControl(control);
    std::fill(list.held.begin(), list.held.end(), std::string());
    std::fill(list.selections.begin(), list.selections.end(), 0);
    list.searchMode = compoundSearch;
    list.querySql.clear();
}

bool unloadsNow(const ListWindow& list) {
    const std::string word = worded(list.spec, list.spec.registrationWord);
    return list.spec.unloads || (!word.empty() && text::contains(rosterSession.currentForm->name, word));
}

void close(ListWindow& list) {
    if (!unloadsNow(list)) return screen::hide(list.window);
    screen::unload(list.window);
    forgetState(list);
}

// The window that opened this one: the list window above it, or the entry form.
void enableOpener() {
    const bool nested = rosterSession.lookupNested == 1;
    screen::setEnabled(nested ? *rosterSession.lookupParent : *rosterSession.currentForm, true);
}

void moveFocusOn() {
    screen::setFocus(*rosterSession.lookupTarget);
    if (rosterSession.lookupNested != 1) nextTabStop();
    screen::setFocus(*rosterSession.lookupNextControl);
}

ListWindow& instanceOf(const ListSpec& spec) {
    const auto found =
        std::find_if(slots().begin(), slots().end(), [&](const auto& list) { return &list->spec == &spec; });
    if (found != slots().end()) return **found;
    return *slots().emplace_back(std::make_unique<ListWindow>(spec));
}

// While it lives a list window is open from another one. There is one parent and no stack: when the inner of two ends,
// the outer one returns to the entry form, and the list window that opened that one stays disabled.
class Nesting {
public:
    explicit Nesting(ListWindow& parent) {
        rosterSession.lookupParent = &parent.window;
        rosterSession.lookupNested = 1;
    }
    ~Nesting() {
        rosterSession.lookupNested = 0;
        rosterSession.lookupParent = nullptr;
        rosterSession.lookupTarget = target;
        rosterSession.lookupNextControl = next;
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Control* const target = rosterSession.lookupTarget;
    Control* const next = rosterSession.lookupNextControl;
};

} // namespace

ListWindow::ListWindow(const ListSpec& itsSpec)
    : spec(itsSpec), window(worded(itsSpec, itsSpec.name)), held(itsSpec.fields.size()),
      selections(itsSpec.statuses.size()) {
    makeWindow(*this);
    bindings = listBindings(*this);
    window.bindings = bindings;
    window.load = load;
    window.keyPreview = listKey;
    window.closeRequest = [](screen::Window& itself) { closeByBack(listOf(itself)); };
}

void openList(const ListSpec& spec, std::string_view condition, Control& target, Control& next) {
    rosterSession.lookupCondition = handedOverCondition.value_or(std::string(condition));
    handedOverCondition.reset();
    rosterSession.lookupTarget = &target;
    rosterSession.lookupNextControl = &next;
    screen::showModal(instanceOf(spec).window);
}

void openNestedList(ListWindow& parent, const NestedList& nested) {
    const Nesting nesting(parent);
    screen::setEnabled(parent.window, false);
    openList(*nested.list, "", controlOf(parent, nested.field), controlOf(parent, nested.next));
}

void closeByPick(ListWindow& list) {
    const Control& rows = rowsOf(list);
    if (rows.selected < 0) return;
    const screen::ListRow& picked = rows.rows[static_cast<std::size_t>(rows.selected)];
    rosterSession.lookupCondition = list.spec.returnsKey ? picked.key() : "";
    screen::setText(*rosterSession.lookupTarget, std::string(picked.text())); // its change may touch the rows
    close(list);
    enableOpener();
    moveFocusOn();
}

void closeByBack(ListWindow& list) {
    close(list);
    enableOpener();
    rosterSession.lookupCondition.clear();
    screen::setFocus(*rosterSession.lookupTarget);
}

std::string worded(const ListSpec& spec, std::string_view text) {
    if (spec.word.written.empty()) return std::string(text);
    return text::replaceAll(text, spec.word.written, spec.word.said);
}

Control& controlOf(ListWindow& list, std::string_view name) {
    Control* control = screen::findControl(list.window, name);
    if (!control) hasNo(list.spec.name, name);
    return *control;
}

Control& rowsOf(ListWindow& list) {
    return controlOf(list, worded(list.spec, list.spec.list));
}

template <class Row>
static std::size_t indexOf(std::span<const Row> rows, std::string_view Row::*member, std::string_view name) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.*member == name; });
    if (found == rows.end()) hasNo("a list window", name);
    return static_cast<std::size_t>(found - rows.begin());
}

std::size_t fieldIndex(const ListSpec& spec, std::string_view field) {
    return indexOf(spec.fields, &ListField::name, field);
}

std::size_t statusIndex(const ListSpec& spec, std::string_view number) {
    return indexOf(spec.statuses, &StatusPair::number, number);
}

std::string& heldValue(ListWindow& list, std::string_view field) {
    return list.held[fieldIndex(list.spec, field)];
}

ListWindow* findListOf(const screen::Window& window) {
    const auto found =
        std::find_if(slots().begin(), slots().end(), [&](const auto& list) { return &list->window == &window; });
    return found == slots().end() ? nullptr : found->get();
}

ListWindow& listOf(const screen::Window& window) {
    ListWindow* list = findListOf(window);
    if (!list) throw std::logic_error(window.name + " is no list window");
    return *list;
}

void forgetLists() {
    slots().clear();
    handedOverCondition.reset();
}

} // namespace kestrel
