// What makes one list window differ from the others, as tables. All that the windows do lives in listFrame, listQuery
// and listEvents; a window's own file holds nothing but its tables.
#pragma once

#include "screen/window.hpp"

#include <span>
#include <string>
#include <string_view>

namespace kestrel {

struct ListWindow;
struct ListSpec;

// One control. Twips; the heights follow from the kind, a list ends above the button beneath it.
struct ListControl {
    int tabIndex;
    std::string_view name;
    screen::Kind kind;
    std::string_view caption;
    int left, top, width;
    int maxLength = 0;
    screen::InputMode inputMode = screen::InputMode::none;
};

struct ListWindowColumn {
    std::string_view title;
    int width;               // twips
    std::string_view column; // of the record; the first one is the row's text
};

// What leaving a field does before its text becomes the value that searches go by.
enum class Leaving {
    text,
    code,       // brought to its mask first
    telephone,  // only when there is a digit in it, so that an emptied field keeps its old value
    postalCode, // likewise, and brought to one hyphen
    passedOn,   // shows a name: nobody can rest there
};

struct ListField {
    std::string_view name;
    Leaving leaving;
    std::string_view mask = {};
    std::string_view nameField = {}; // shows the name of this code
    std::string (*nameOf)(const std::string& code) = nullptr;
};

// A number beside a drop-down that is filled from a class table and ends with a row for all.
inline constexpr int everything = 0x7fff;
struct StatusPair {
    std::string_view number, dropDown, table;
    int initial; // at load
};

// At load the value of this column goes from the caller's condition into that field or status.
struct ConditionValue {
    std::string_view column;
    std::string_view occurrence; // asked only when this stands in the condition
    std::string_view field;
};

// Where a clause's value comes from, and when the clause is there at all.
enum class ClauseKind {
    callerIfAny,  // lookupCondition, unless it is blank
    callerAlways, // lookupCondition, even when it is empty
    office,       // sessionOffice, unless that is "000"
    staffOffice,  // sessionOffice, unless operatingOffice is "000"
    code,         // the field's value, unless it is blank
    word,         // the same, trimmed and quoted
    wordAsHeld,   // the same, quoted
    digits,       // the same, its digits alone, quoted
    filled,       // the field's value, unless it is empty
    filledWord,   // the same, quoted
    status,       // the selected number, unless that means all
};

enum class Connective {
    whereOrAnd, // WHERE when nothing stands before it, else AND
    where,      // WHERE, whatever stands before it
};

// One condition of a search. "{}" stands for the value, each time; "{+1}" for the number at its front plus one, with
// three digits.
struct Clause {
    ClauseKind kind;
    std::string_view field;
    std::string_view text;
    std::string_view negated = {};    // in the negation; empty: the same text
    std::string_view negatedAll = {}; // a status that means all, in the negation; empty: no clause
    Connective connective = Connective::whereOrAnd;
    bool countsAsWhere = true; // false: a clause behind it doesn't know that it is there
};

struct SearchMode {
    std::string_view button; // empty: no button of its own
    int number;
    std::string_view field;   // goes by the clause of this field alone; empty: by all
    std::string_view order;   // behind ORDER BY; empty: none
    bool ignoresTest = false; // its clause is there with an empty value too
    bool built = true;        // false: the last search is repeated
};
inline constexpr int compoundSearch = 0, negationSearch = -1;

struct ListSelect {
    std::string_view kinds; // database kinds that get this text; empty: all
    std::string_view text;
    bool hasWhere = false;
};

// The field opens that window for its own code, by a second Ctrl or double click, or by the button at once.
struct NestedList {
    std::string_view field, button;
    const ListSpec* list;
    std::string_view next; // gets the focus behind the field
};

// What btn_画面クリア does.
struct ClearRule {
    bool forgetsCondition = true, forgetsSearch = true, emptiesFields = true, searches = true;
};

// Which search buttons a change of a field enables and disables.
enum class LiveButtons { ofAllFields, ofThisField };

struct ListSpec {
    std::string_view name; // of the window
    std::string_view list; // of its list control
    // All texts of this record are written with the first word; the second stands in its place.
    struct {
        std::string_view written, said;
    } word = {};
    std::span<const ListControl> controls;
    std::span<const ListWindowColumn> columns;
    std::span<const std::string_view> keyColumns; // a row's Key is "C" and these joined
    std::span<const ListField> fields;
    std::span<const StatusPair> statuses = {};
    std::span<const ConditionValue> conditions = {}; // in the order in which they are taken
    std::span<const ListSelect> selects;
    std::span<const Clause> fixed = {}, searched = {}, standing = {};
    std::span<const SearchMode> modes;
    std::span<const NestedList> nested = {};
    std::span<const std::string_view> arming = {}; // set lastEnteredField when they take the focus
    int rowLimit = 0;                              // with a note when it is reached; 0: none
    bool unloads = false;                          // on closing; else it hides and keeps everything
    std::string_view registrationWord = {};        // unloads also when currentForm's name holds it
    bool returnsKey = false;                       // a pick leaves the Key in lookupCondition
    LiveButtons liveButtons = LiveButtons::ofAllFields;
    bool checksButtonsOnLeaving = false;
    bool showsFieldsAfterSearch = false;
    ClearRule clear = {};
    void (*takeMore)(ListWindow&) = nullptr; // at load and clear, behind the caller's condition
    void (*prepare)(ListWindow&) = nullptr;  // at load only
    std::string (*orderLead)() = nullptr;    // in front of the mode's order
};

} // namespace kestrel
