// The looking half of screen/hand.hpp: what the widgets show where they show it. A window that isn't shown is read from
// its record.
#include "screen/hand.hpp"

#include "frontend/qt/boxes.hpp"
#include "frontend/qt/text.hpp"
#include "frontend/qt/views.hpp"
#include "frontend/qt/widgets.hpp"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace kestrel::hand {

namespace {

using frontend::modelText;
using frontend::widgetOf;
using screen::Control;

std::string recordText(const Control& control) {
    if (isField(control)) return control.text;
    if (control.kind != screen::Kind::ComboBox) return control.caption;
    return control.listIndex < 0 ? "" : control.items[static_cast<std::size_t>(control.listIndex)];
}

const QTableView* tableOf(const Control& list) {
    return qobject_cast<const QTableView*>(widgetOf(list));
}

} // namespace

std::string shownText(const Control& control) {
    const QWidget* widget = widgetOf(control);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) return modelText(line->text());
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(widget)) return frontend::modelMemo(memo->toPlainText());
    if (const auto* box = qobject_cast<const QComboBox*>(widget)) return modelText(box->currentText());
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return frontend::modelLines(label->text());
    if (const auto* button = qobject_cast<const QPushButton*>(widget))
        return modelText(button->text().replace("&&", "&"));
    return recordText(control);
}

bool shownEnabled(const Control& control) {
    const QWidget* widget = widgetOf(control);
    return widget ? widget->isEnabledTo(widget->parentWidget()) : control.enabled;
}

bool shownVisible(const Control& control) {
    const QWidget* widget = widgetOf(control);
    if (!widget || !pageShown(control)) return control.visible;
    return widget->isVisibleTo(widget->parentWidget());
}

int shownValue(const Control& control) {
    const QWidget* widget = widgetOf(control);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) return line->text().toInt();
    if (widget && control.kind == screen::Kind::SSTab) return frontend::barOf(*widget).currentIndex();
    return control.value;
}

std::string shownCaption(const screen::Window& window) {
    const QWidget* top = frontend::topOf(window);
    return top ? modelText(top->windowTitle()) : window.caption;
}

std::string shownMessage() {
    const QLabel* text = frontend::boxText();
    return text ? frontend::modelLines(text->text()) : "";
}

// While the focus rests on a control that isn't on the screen the window itself holds the keyboard for it.
Control* shownFocus(const screen::Window& window) {
    const QWidget* top = frontend::topOf(window);
    if (!top || !top->focusWidget() || top->focusWidget() == top) return window.focus;
    return frontend::controlOf(top->focusWidget());
}

int shownRowCount(const Control& list) {
    const QTableView* table = tableOf(list);
    return table ? table->model()->rowCount() : static_cast<int>(list.rows.size());
}

std::string shownCell(const Control& list, int row, int column) {
    if (const QTableView* table = tableOf(list)) return modelText(table->model()->index(row, column).data().toString());
    return std::string(list.rows[static_cast<std::size_t>(row)].cell(static_cast<std::size_t>(column)));
}

int shownSelected(const Control& list) {
    const QTableView* table = tableOf(list);
    return table ? table->currentIndex().row() : list.selected;
}

} // namespace kestrel::hand
