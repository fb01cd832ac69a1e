// One control of a window: a plain record that holds what the screen says. Front ends show it; they hold no truth of
// their own. Reading is plain member access; writing goes through the set… functions below, which raise the change
// event where a control has one.
#pragma once

#include "screen/list_row.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::screen {

struct Window;

enum class Kind {
    xField,
    xNum,
    xText,
    xZip,
    xTel,
    xPass,
    xKana,
    xLabel,
    SSCommand,
    SSPanel,
    SSTab,
    ListView,
    ComboBox
};

// State of the Japanese input method while a field has the focus.
enum class InputMode { none, off, on, disabled, hiragana, halfKatakana };

// Twips (1440 an inch, 15 a pixel at 96 dpi), from the window's upper left corner.
struct Place {
    int left = 0, top = 0, width = 0, height = 0;
};

struct ListColumn {
    std::string title;
    int width = 0; // twips
};

enum class SortOrder { ascending, descending };

// A colour as red + 256 * green + 65536 * blue, the way the suite writes one: 192 is a dark red.
using Color = int;

struct Control {
    std::string name;
    Kind kind = Kind::xField;
    Window* window = nullptr;
    std::string caption; // buttons, panels, labels
    std::string text;    // what a field shows; UTF-8, a memo's line ends are CR LF
    bool enabled = true, visible = true, tabStop = true;
    int tabIndex = -1;
    int maxLength = 0; // bytes of code page 932, 0 for none; told to the program, never applied by the control
    InputMode inputMode = InputMode::none;
    Place place;
    Control* tab = nullptr; // the tab strip whose page holds this control, or none
    int page = -1;          // that page, from 0
    std::optional<Color> color;
    bool guard = false;  // a button outside the visible area that only catches the focus
    bool notice = false; // the line of short feedback: its changes are what a person notices

    int value = 0, minValue = 0, maxValue = 0; // xNum: the number; SSTab: value is the page shown
    std::vector<std::string> items;            // drop-down: its rows; SSTab: the captions of its pages
    int listIndex = -1;                        // drop-down: the row shown, -1 none

    std::vector<ListColumn> columns; // list views from here on
    bool marked = false;             // its rows show their flag, on or off, in front of the text
    std::vector<ListRow> rows;
    unsigned rowsRevision = 0; // counts every change of the rows, so that a front end knows when to look again
    int selected = -1;         // index of the selected row, -1 none
    int sortKey = 0;           // column
    SortOrder sortOrder = SortOrder::ascending;
    bool sorted = false;
};

std::string_view kindName(Kind kind);           // "xField", "SSCommand"…
std::string_view inputModeName(InputMode mode); // "off", "hiragana"…

// After the end of the process none of these touches anything.

// Any field, xNum too (which takes the leading number). A text that differs raises the change event; an equal one does
// nothing. xZip sets its hyphen: "1234567" shows as "123-4567".
void setText(Control& control, std::string_view text);
void setCaption(Control& control, std::string_view caption);
void setEnabled(Control& control, bool enabled);
void setVisible(Control& control, bool visible);
void setTabStop(Control& control, bool tabStop);
void setColor(Control& control, std::optional<Color> color);
void setValue(Control& control,
              int value); // xNum: clamped to its bounds, raises change when it differs; SSTab: turns the page
void setBounds(Control& control, int minimum, int maximum); // xNum
void setItems(Control& control, std::vector<std::string> items);
void setListIndex(Control& control, int index); // drop-down; outside its rows: none shown. Raises no event

void setColumns(Control& list, std::vector<ListColumn> columns);
void clearRows(Control& list); // also forgets the selection
void addRow(Control& list, const RowTexts& row);
void setSelected(Control& list, int index);

// How an xZip shows digits: a hyphen behind the third as soon as a fourth is there; any other text as typed.
std::string zipText(std::string_view typed);

bool isField(const Control& control);    // a person types into it
bool isButton(const Control& control);   // SSCommand
bool takesFocus(const Control& control); // fields, buttons, drop-downs, lists, tab strips; panels and labels don't
bool pageShown(const Control& control);  // it stands on no page, or on the page that its tab strip shows

} // namespace kestrel::screen
