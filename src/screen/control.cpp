#include "screen/control.hpp"

#include "platform/journal.hpp"
#include "screen/ending.hpp"
#include "screen/window.hpp"
#include "text/numbers.hpp"
#include "text/quoting.hpp"

#include <algorithm>
#include <array>

namespace kestrel::screen {

namespace {

struct KindRow {
    Kind kind;
    std::string_view name;
    bool field, focus;
};

constexpr std::array kinds{
    KindRow{Kind::xField, "xField", true, true},
    KindRow{Kind::xNum, "xNum", true, true},
    KindRow{Kind::xText, "xText", true, true},
    KindRow{Kind::xZip, "xZip", true, true},
    KindRow{Kind::xTel, "xTel", true, true},
    KindRow{Kind::xPass, "xPass", true, true},
    KindRow{Kind::xKana, "xKana", true, true},
    KindRow{Kind::xLabel, "xLabel", false, false},
    KindRow{Kind::SSCommand, "SSCommand", false, true},
    KindRow{Kind::SSPanel, "SSPanel", false, false},
    KindRow{Kind::SSTab, "SSTab", false, true},
    KindRow{Kind::ListView, "ListView", false, true},
    KindRow{Kind::ComboBox, "ComboBox", false, true},
};

constexpr std::array<std::string_view, 6> inputModes{"none", "off", "on", "disabled", "hiragana", "halfKatakana"};

const KindRow& rowOf(Kind kind) {
    return *std::find_if(kinds.begin(), kinds.end(), [kind](const KindRow& row) { return row.kind == kind; });
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

void changed(Control& control) {
    raise({control, Event::change});
}

void setNumber(Control& control, int value) {
    const int clamped = std::clamp(value, control.minValue, std::max(control.minValue, control.maxValue));
    const bool differs = clamped != control.value;
    control.value = clamped;
    control.text = std::to_string(clamped);
    if (differs) changed(control);
}

} // namespace

std::string_view kindName(Kind kind) {
    return rowOf(kind).name;
}
std::string_view inputModeName(InputMode mode) {
    return inputModes[static_cast<std::size_t>(mode)];
}

bool isField(const Control& control) {
    return rowOf(control.kind).field;
}
bool isButton(const Control& control) {
    return control.kind == Kind::SSCommand;
}
bool takesFocus(const Control& control) {
    return rowOf(control.kind).focus;
}
bool pageShown(const Control& control) {
    return !control.tab || control.tab->value == control.page;
}

std::string zipText(std::string_view typed) {
    std::string digits(typed);
    if (digits.size() > 3 && digits[3] == '-') digits.erase(3, 1);
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) return std::string(typed);
    if (digits.size() > 3) digits.insert(3, 1, '-');
    return digits;
}

void setText(Control& control, std::string_view text) {
    if (ended()) return;
    if (control.kind == Kind::xNum) {
        const long long number = text::leadingNumber(text);
        setNumber(control, static_cast<int>(std::clamp(number, -1'000'000'000LL, 1'000'000'000LL)));
        return;
    }
    std::string shown = control.kind == Kind::xZip ? zipText(text) : std::string(text);
    if (shown == control.text) return;
    control.text = std::move(shown);
    changed(control);
}

void setCaption(Control& control, std::string_view caption) {
    if (ended() || control.caption == caption) return;
    control.caption = caption;
    if (control.notice) journal::record(journal::Channel::seen, "notice " + text::quoted(caption));
}

void setEnabled(Control& control, bool enabled) {
    if (!ended()) control.enabled = enabled;
}

void setVisible(Control& control, bool visible) {
    if (!ended()) control.visible = visible;
}

void setTabStop(Control& control, bool tabStop) {
    if (!ended()) control.tabStop = tabStop;
}

void setColor(Control& control, std::optional<Color> color) {
    if (!ended()) control.color = color;
}

void setValue(Control& control, int value) {
    if (ended()) return;
    if (control.kind == Kind::SSTab)
        control.value = std::clamp(value, 0, std::max(0, static_cast<int>(control.items.size()) - 1));
    else
        setNumber(control, value);
}

void setBounds(Control& control, int minimum, int maximum) {
    if (ended()) return;
    control.minValue = minimum;
    control.maxValue = maximum;
    setNumber(control, control.value);
}

void setItems(Control& control, std::vector<std::string> items) {
    if (ended()) return;
    control.items = std::move(items);
    if (control.kind == Kind::ComboBox) control.listIndex = -1;
}

void setListIndex(Control& control, int index) {
    if (ended()) return;
    control.listIndex = index >= 0 && index < static_cast<int>(control.items.size()) ? index : -1;
}

void setColumns(Control& list, std::vector<ListColumn> columns) {
    if (!ended()) list.columns = std::move(columns);
}

void clearRows(Control& list) {
    if (ended()) return;
    list.rows.clear();
    list.selected = -1;
    ++list.rowsRevision;
}

void addRow(Control& list, const RowTexts& row) {
    if (ended()) return;
    list.rows.emplace_back(row);
    ++list.rowsRevision;
}

void setSelected(Control& list, int index) {
    if (ended()) return;
    list.selected = index >= 0 && index < static_cast<int>(list.rows.size()) ? index : -1;
}

} // namespace kestrel::screen
