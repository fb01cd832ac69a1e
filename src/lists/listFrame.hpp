// The life of a list window: made when it is first needed, loaded, shown modally, hidden or unloaded by a pick or its
// back button. One instance of each window for a run of the program.
#pragma once

#include "lists/listSpec.hpp"

#include <optional>
#include <vector>

namespace kestrel {

struct ListWindow {
    explicit ListWindow(const ListSpec& itsSpec);

    const ListSpec& spec;
    screen::Window window;
    std::vector<screen::Binding> bindings;
    int searchMode = compoundSearch;
    std::vector<std::string> held; // one a field of the spec: what searches go by, while the control only shows it
    std::vector<int> selections;   // one a status pair
    std::string querySql;          // of the last search
};

// Shows the window and returns when it was closed. A pick has then set the target's text and moved the focus from the
// target to the next control; for the roster windows the condition holds the row's Key. Without a pick the target keeps
// its text and the focus, the condition is empty. Who opens disables his own form before; the window enables it again.
void openList(const ListSpec& spec, std::string_view condition, screen::Control& target, screen::Control& next);

// The same from inside a list window, for the code of one of its fields.
void openNestedList(ListWindow& parent, const NestedList& nested);

void closeByPick(ListWindow& list); // without a selected row nothing happens
void closeByBack(ListWindow& list);

void readCondition(ListWindow& list); // the caller's condition into the held values; what it doesn't tell is emptied
void showFields(ListWindow& list);    // held values and selections onto the screen
void runSearch(ListWindow& list);     // by searchMode, into the list

std::string worded(const ListSpec& spec, std::string_view text);     // with the window's own word in it
screen::Control& controlOf(ListWindow& list, std::string_view name); // raises when there is none
screen::Control& rowsOf(ListWindow& list);
std::size_t fieldIndex(const ListSpec& spec, std::string_view field);   // raises when there is none
std::size_t statusIndex(const ListSpec& spec, std::string_view number); // likewise
std::string& heldValue(ListWindow& list, std::string_view field);

ListWindow& listOf(const screen::Window& window);     // raises when it is none
ListWindow* findListOf(const screen::Window& window); // null when it is none
void forgetLists();                                   // at the start of a run; no window of the run before is shown

// For tests: the next window that is opened gets this condition in place of its caller's.
inline std::optional<std::string> handedOverCondition;

} // namespace kestrel
