// The run: what the person at the program does.
#include "entry/wnd摘要.hpp"
#include "lists/listFrame.hpp"
#include "lists/listWindows.hpp"
#include "platform/journal.hpp"
#include "scenario/calls.hpp"
#include "scenario/names.hpp"
#include "scenario/properties.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/session_values.hpp"
#include "scenario/start.hpp"
#include "scenario/tables.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

using screen::Control;

namespace {

// What an act came to: one that nobody could do is written down, and the scenario goes on.
void noted(bool done, const std::string& name) {
    if (!done && !run().over) refuse(name);
}

Control& ofKind(const std::string& name, screen::Kind kind) {
    Control& control = controlNamed(name);
    if (control.kind != kind) throw ScenarioError(name + " is no " + std::string(screen::kindName(kind)));
    return control;
}

void click(const Arguments& arguments) {
    noted(hand::click(controlNamed(arguments[0])), arguments[0]);
}

void doubleClick(const Arguments& arguments) {
    noted(hand::doubleClick(controlNamed(arguments[0])), arguments[0]);
}

void enter(const Arguments& arguments) {
    Control& field = controlNamed(arguments[0]);
    if (!screen::isField(field)) throw ScenarioError(arguments[0] + " is no field");
    const bool done = hand::click(field);
    noted(done, arguments[0]);
    if (done) hand::typeOver(arguments[1]);
}

void type(const Arguments& arguments) {
    hand::typeOver(arguments[0]);
}

void press(const Arguments& arguments) {
    hand::key(keyNamed(arguments[0]));
}

void hold(const Arguments& arguments) {
    hand::hold(keyNamed(arguments[0]));
}

void choose(const Arguments& arguments) {
    Control& dropDown = ofKind(arguments[0], screen::Kind::ComboBox);
    const auto& items = dropDown.items;
    const auto found = std::find(items.begin(), items.end(), arguments[1]);
    const int index = position(arguments[1]).value_or(static_cast<int>(found - items.begin()));
    if (index >= static_cast<int>(items.size())) throw ScenarioError(arguments[0] + " has no row " + arguments[1]);
    noted(hand::choose(dropDown, index), arguments[0]);
}

void turnPage(const Arguments& arguments) {
    Control& tab = ofKind(arguments[0], screen::Kind::SSTab);
    const int page = wholeArgument(arguments[1]);
    if (page < 0 || page >= static_cast<int>(tab.items.size()))
        throw ScenarioError(arguments[0] + " has no page " + arguments[1]);
    noted(hand::page(tab, page), arguments[0]);
}

void pressRow(const Arguments& arguments, bool twice) {
    Control& list = ofKind(arguments[0], screen::Kind::ListView);
    const auto index = rowIndex(list, arguments[1]);
    if (!index) throw ScenarioError(arguments[0] + " has no row " + arguments[1]);
    noted(hand::row(list, *index, twice), arguments[0]);
}

void row(const Arguments& arguments) {
    pressRow(arguments, false);
}

void doubleRow(const Arguments& arguments) {
    pressRow(arguments, true);
}

void header(const Arguments& arguments) {
    Control& list = ofKind(arguments[0], screen::Kind::ListView);
    const int column = wholeArgument(arguments[1]);
    if (column < 0 || column >= static_cast<int>(list.columns.size()))
        throw ScenarioError(arguments[0] + " has no column " + arguments[1]);
    noted(hand::header(list, column), arguments[0]);
}

bool boxWaits() {
    return screen::waiting() && screen::waiting()->kind == screen::Waiting::Kind::box;
}

bool dialogWaits() {
    return screen::waiting() && !boxWaits();
}

void answer(const Arguments& arguments) {
    if (!boxWaits()) throw ScenarioError("no message box waits");
    if (!hand::answer(arguments[0])) throw ScenarioError("the message box has no button " + arguments[0]);
}

void pick(const Arguments& arguments) {
    if (!dialogWaits()) throw ScenarioError("no dialog waits");
    if (!hand::pick(arguments[0])) throw ScenarioError("the dialog takes no path");
}

void cancel(const Arguments&) {
    if (!dialogWaits()) throw ScenarioError("no dialog waits");
    hand::cancel();
}

void close(const Arguments&) {
    if (screen::waiting()) {
        hand::cancel();
        return;
    }
    const std::string name = presentWindow().name;
    noted(hand::closeWindow(), name);
}

void setSession(const Arguments& arguments) {
    writeSessionValue(arguments[0], arguments[1]);
}

void setProperty(const Arguments& arguments) {
    const Subject subject = subjectNamed(arguments[0]);
    if (!subject.control) throw ScenarioError("only properties of controls can be set");
    writeProperty(*subject.control, subject.property, arguments[1]);
}

// The windows that no control of the program opens.
struct Opened {
    std::string_view window;
    void (*show)();
};
constexpr std::array openedWindows{Opened{"wnd摘要", showMemoWindow}};

// As the entry form opens one.
void openListWindow(const ListSpec& list, const Arguments& arguments) {
    Control& target = controlNamed(arguments[1]);
    screen::setEnabled(*rosterSession.currentForm, false);
    openList(list, arguments[2], target, target);
}

void openWindow(const Arguments& arguments) {
    if (const ListSpec* list = findListSpec(arguments[0])) return openListWindow(*list, arguments);
    const auto found = std::find_if(openedWindows.begin(), openedWindows.end(),
                                    [&](const Opened& row) { return row.window == arguments[0]; });
    if (found == openedWindows.end()) throw ScenarioError("no window " + arguments[0] + " to open");
    rosterSession.lookupTarget = &controlNamed(arguments[1]);
    rosterSession.lookupCondition = arguments[2];
    found->show();
}

constexpr unsigned act = whileRunning | atRest | action;
constexpr unsigned actAtBox = whileRunning | action;

constexpr std::array verbs{
    Verb{"start", "T", beforeStart | action, startRun},
    Verb{"click", "w", act, click},
    Verb{"doubleclick", "w", act, doubleClick},
    Verb{"enter", "wt", act, enter},
    Verb{"type", "t", act, type},
    Verb{"press", "w", actAtBox, press},
    Verb{"hold", "w", act, hold},
    Verb{"choose", "wt", act, choose},
    Verb{"page", "ww", act, turnPage},
    Verb{"row", "wt", act, row},
    Verb{"doublerow", "wt", act, doubleRow},
    Verb{"header", "ww", act, header},
    Verb{"answer", "t", actAtBox, answer},
    Verb{"pick", "t", actAtBox, pick},
    Verb{"cancel", "", actAtBox, cancel},
    Verb{"close", "", actAtBox, close},
    Verb{"call", "wm", whileRunning | action, callOperation},
    Verb{"session", "wt", whileRunning, setSession},
    Verb{"set", "ww", whileRunning, setProperty},
    Verb{"handover", "t", whileRunning, [](const Arguments& a) { handedOverCondition = a[0]; }},
    Verb{"open", "wwt", act, openWindow},
};

} // namespace

std::span<const Verb> actVerbs() {
    return verbs;
}

} // namespace kestrel::scenario
