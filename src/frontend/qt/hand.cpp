#include "screen/hand.hpp"

#include "frontend/qt/boxes.hpp"
#include "frontend/qt/events.hpp"
#include "frontend/qt/text.hpp"
#include "frontend/qt/views.hpp"
#include "frontend/qt/waits.hpp"
#include "frontend/qt/widgets.hpp"
#include "screen/ending.hpp"
#include "screen/message.hpp"
#include "screen/person.hpp"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

namespace kestrel::hand {

namespace {

screen::Key heldKey = screen::Key::Ctrl;
int repeatsLeft = 0;

using frontend::topOf;
using frontend::widgetOf;
using screen::Control;

// What a person can press: the model agrees, and on the screen nothing lies over it.
std::optional<QPoint> pressPoint(const Control& control, QWidget* part) {
    if (!part || !canPress(control)) return std::nullopt;
    return frontend::reachablePoint(*part);
}

bool clickPart(const Control& control, QWidget* part) {
    const std::optional<QPoint> point = pressPoint(control, part);
    if (point) frontend::clickAt(*part->window(), *point);
    return point.has_value();
}

QTableView* tableOf(const Control& list) {
    return qobject_cast<QTableView*>(widgetOf(list));
}

// Beside the rows there is always the frame, and beside the captions of the pages the rest of their line.
std::optional<QPoint> besidePoint(const Control& control, QWidget& widget) {
    if (control.kind == screen::Kind::ListView) return widget.mapTo(widget.window(), QPoint(0, widget.height() / 2));
    const QTabBar& bar = frontend::barOf(widget);
    return bar.mapTo(bar.window(), QPoint(bar.width() - 2, bar.height() / 2));
}

std::optional<QPoint> clickPoint(const Control& control) {
    QWidget* widget = widgetOf(control);
    const bool beside = control.kind == screen::Kind::ListView || control.kind == screen::Kind::SSTab;
    const std::optional<QPoint> point = pressPoint(control, widget);
    return point && beside ? besidePoint(control, *widget) : point;
}

QWidget* keyTarget() {
    if (screen::ended()) return nullptr;
    if (QDialog* dialog = frontend::dialogWaiting()) return dialog;
    const screen::Window* active = screen::activeWindow();
    return active ? topOf(*active) : nullptr;
}

QPushButton* boxButton(std::string_view caption) {
    const QDialog* box = frontend::dialogWaiting();
    if (!box || frontend::pickerWaiting()) return nullptr;
    for (QPushButton* button : box->findChildren<QPushButton*>())
        if (button->text() == frontend::shownText(caption)) return button;
    return nullptr;
}

bool clickButton(QWidget* button) {
    if (!button) return false;
    const std::optional<QPoint> point = frontend::reachablePoint(*button);
    if (point) frontend::clickAt(*button->window(), *point);
    return point.has_value();
}

void selectAll(QWidget* widget) {
    if (auto* line = qobject_cast<QLineEdit*>(widget)) line->selectAll();
    if (auto* memo = qobject_cast<QPlainTextEdit*>(widget)) memo->selectAll();
}

} // namespace
} // namespace kestrel::hand

namespace kestrel::frontend {

bool repeatHeldKey() {
    if (hand::repeatsLeft == 0) return false;
    --hand::repeatsLeft;
    QWidget* target = dialogWaiting() ? nullptr : hand::keyTarget();
    if (target) pressKey(*target, hand::heldKey, true);
    return true;
}

} // namespace kestrel::frontend

namespace kestrel::hand {

bool click(Control& control) {
    const std::optional<QPoint> point = clickPoint(control);
    if (point) frontend::clickAt(*topOf(*control.window), *point);
    return point.has_value();
}

bool doubleClick(Control& control) {
    const std::optional<QPoint> point = clickPoint(control);
    if (point) frontend::clickTwiceAt(*topOf(*control.window), *point);
    return point.has_value();
}

void key(screen::Key which) {
    if (QWidget* target = keyTarget()) frontend::strike(*target, which);
}

void hold(screen::Key which) {
    QWidget* target = keyTarget();
    if (!target) return;
    heldKey = which;
    repeatsLeft = heldRepeats;
    frontend::pressKey(*target, which, false);
    while (frontend::repeatHeldKey()) {
    }
    if (QWidget* last = keyTarget()) frontend::releaseKey(*last, which);
}

void typeOver(std::string_view text) {
    QWidget* target = frontend::dialogWaiting() ? nullptr : keyTarget();
    if (!target) return;
    selectAll(target->focusWidget());
    if (text.empty())
        frontend::strike(*target, screen::Key::Delete);
    else
        frontend::typeText(*target, text);
}

// The row is picked in the list that drops down.
bool choose(Control& dropDown, int index) {
    auto* box = qobject_cast<QComboBox*>(widgetOf(dropDown));
    if (!box || index < 0 || index >= box->count() || !clickPart(dropDown, box)) return false;
    box = qobject_cast<QComboBox*>(widgetOf(dropDown)); // what the click set off may have closed the window
    if (!box || !box->view()->isVisible()) return true;
    box->view()->setCurrentIndex(box->model()->index(index, box->modelColumn()));
    frontend::strike(*box->view()->window(), screen::Key::Enter);
    return true;
}

bool page(Control& tab, int index) {
    QWidget* strip = widgetOf(tab);
    if (!strip || index < 0 || index >= frontend::barOf(*strip).count()) return false;
    if (!pressPoint(tab, strip)) return false;
    const QTabBar& bar = frontend::barOf(*strip);
    frontend::clickAt(*strip->window(), bar.mapTo(strip->window(), bar.tabRect(index).center()));
    return true;
}

bool row(Control& list, int index, bool twice) {
    QTableView* table = tableOf(list);
    if (!table || index < 0 || index >= table->model()->rowCount() || !pressPoint(list, table)) return false;
    const QModelIndex cell = table->model()->index(index, 0);
    table->scrollTo(cell);
    const QPoint point = table->viewport()->mapTo(table->window(), table->visualRect(cell).center());
    (twice ? frontend::clickTwiceAt : frontend::clickAt)(*table->window(), point);
    return true;
}

bool header(Control& list, int column) {
    QTableView* table = tableOf(list);
    if (!table || column < 0 || column >= table->model()->columnCount() || !pressPoint(list, table)) return false;
    const QHeaderView& heads = *table->horizontalHeader();
    const QPoint inside(heads.sectionViewportPosition(column) + heads.sectionSize(column) / 2, heads.height() / 2);
    frontend::clickAt(*table->window(), heads.viewport()->mapTo(table->window(), inside));
    return true;
}

bool closeWindow() {
    const screen::Window* active = screen::activeWindow();
    QWidget* top = active && !frontend::dialogWaiting() ? topOf(*active) : nullptr;
    if (!top || screen::ended()) return false;
    top->close();
    return true;
}

bool answer(std::string_view caption) {
    return clickButton(boxButton(caption));
}

// As a person pastes a path and presses Enter: each folder typed on the way to it would be picked as well.
bool pick(std::string_view path) {
    QFileDialog* picker = frontend::pickerWaiting();
    auto* name = picker ? picker->findChild<QLineEdit*>("fileNameEdit") : nullptr;
    if (!name) return false;
    name->setFocus();
    name->selectAll();
    name->insert(frontend::shownText(path));
    frontend::strike(*picker, screen::Key::Enter);
    return !picker->isVisible();
}

bool cancel() {
    QDialog* dialog = frontend::dialogWaiting();
    return dialog && dialog->close();
}

} // namespace kestrel::hand
