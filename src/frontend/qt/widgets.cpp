#include "frontend/qt/widgets.hpp"

#include "frontend/qt/fields.hpp"
#include "frontend/qt/lists.hpp"
#include "frontend/qt/look.hpp"
#include "frontend/qt/person.hpp"
#include "frontend/qt/text.hpp"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace kestrel::frontend {

namespace {

using screen::Control;
using screen::Kind;

QWidget* makeCaption(Control& control, QWidget* top) {
    auto* label = new QLabel(top);
    label->setTextFormat(Qt::PlainText);
    dressCaption(*label, control);
    return label;
}

void applyCaption(const Control& control, QWidget& widget) {
    auto& label = static_cast<QLabel&>(widget);
    const QString text = shownLines(control.caption);
    if (label.text() == text) return;
    label.setText(text);
    if (control.notice) dressNotice(label);
    fitText(label, text, label.contentsRect().width());
}

QWidget* makeButton(Control& control, QWidget* top) {
    auto* button = new QPushButton(top);
    button->setAutoDefault(false);
    if (control.window->defaultButton == &control) button->setDefault(true);
    QObject::connect(button, &QPushButton::clicked, button, [button] { personPressed(button); });
    return button;
}

void applyButton(const Control& control, QWidget& widget) {
    auto& button = static_cast<QPushButton&>(widget);
    const QString text = shownText(control.caption).replace('&', "&&");
    if (button.text() == text) return;
    button.setText(text);
    fitText(button, shownText(control.caption), button.width() - buttonPadding());
}

QWidget* makeTabStrip(Control&, QWidget* top) {
    auto* strip = new QWidget(top);
    auto* bar = new QTabBar(strip);
    auto* pane = new QFrame(strip);
    pane->setObjectName("pane");
    bar->setExpanding(false);
    bar->setDrawBase(false);
    bar->setUsesScrollButtons(false);
    bar->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(strip);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(pane, 1);
    strip->setFocusProxy(bar);
    return strip;
}

void applyTabStrip(const Control& control, QWidget& widget) {
    QTabBar& bar = barOf(widget);
    const int pages = static_cast<int>(control.items.size());
    while (bar.count() > pages) bar.removeTab(bar.count() - 1);
    while (bar.count() < pages) bar.addTab({});
    for (int page = 0; page < pages; ++page) {
        const QString text = shownText(control.items[static_cast<std::size_t>(page)]).replace('&', "&&");
        if (bar.tabText(page) != text) bar.setTabText(page, text);
    }
    if (bar.currentIndex() != control.value) bar.setCurrentIndex(control.value);
}

class DropDown : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override {
        QComboBox::paintEvent(event);
        paintArrow(*this);
    }
};

// Esc closes a list that hangs down, and means to the window what it means everywhere in it.
class EscapeFilter : public QObject {
public:
    explicit EscapeFilter(QComboBox& itsBox) : QObject(&itsBox), box(itsBox) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent&>(*event).key() != Qt::Key_Escape) return false;
        box.hidePopup();
        personStruck(&box, screen::Key::Esc);
        return true;
    }

private:
    QComboBox& box;
};

QWidget* makeDropDown(Control&, QWidget* top) {
    auto* box = new DropDown(top);
    box->setMaxVisibleItems(12);
    box->view()->installEventFilter(new EscapeFilter(*box));
    QObject::connect(box, &QComboBox::activated, box, [box](int index) { personChose(box, index); });
    return box;
}

bool sameItems(const Control& control, const QComboBox& box) {
    const auto count = static_cast<int>(control.items.size());
    if (box.count() != count) return false;
    for (int i = 0; i < count; ++i)
        if (box.itemText(i) != shownText(control.items[static_cast<std::size_t>(i)])) return false;
    return true;
}

void applyDropDown(const Control& control, QWidget& widget) {
    auto& box = static_cast<QComboBox&>(widget);
    if (!sameItems(control, box)) {
        box.clear();
        for (const std::string& item : control.items) box.addItem(shownText(item));
    }
    if (box.currentIndex() != control.listIndex) box.setCurrentIndex(control.listIndex);
}

struct KindRow {
    Kind kind;
    QWidget* (*make)(Control&, QWidget*);
    void (*apply)(const Control&, QWidget&);
};

constexpr std::array kinds{
    KindRow{Kind::xField, makeLine, applyLine},
    KindRow{Kind::xNum, makeLine, applyLine},
    KindRow{Kind::xText, makeMemo, applyMemo},
    KindRow{Kind::xZip, makeLine, applyLine},
    KindRow{Kind::xTel, makeLine, applyLine},
    KindRow{Kind::xPass, makeLine, applyLine},
    KindRow{Kind::xKana, makeLine, applyLine},
    KindRow{Kind::xLabel, makeCaption, applyCaption},
    KindRow{Kind::SSCommand, makeButton, applyButton},
    KindRow{Kind::SSPanel, makeCaption, applyCaption},
    KindRow{Kind::SSTab, makeTabStrip, applyTabStrip},
    KindRow{Kind::ListView, makeList, applyList},
    KindRow{Kind::ComboBox, makeDropDown, applyDropDown},
};

const KindRow& rowOf(Kind kind) {
    return *std::find_if(kinds.begin(), kinds.end(), [kind](const KindRow& row) { return row.kind == kind; });
}

void applyColor(const Control& control, QWidget& widget) {
    const QColor wanted =
        control.color ? QColor(*control.color & 255, *control.color >> 8 & 255, *control.color >> 16 & 255) : QColor();
    const QVariant now = widget.property("kestrelColor");
    if (now.isValid() ? now.value<QColor>() == wanted : !wanted.isValid()) return;
    widget.setProperty("kestrelColor", wanted);
    QPalette palette;
    if (wanted.isValid())
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(role, wanted);
    widget.setPalette(palette);
}

} // namespace

QWidget* makeWidget(Control& control, QWidget* top) {
    QWidget* widget = rowOf(control.kind).make(control, top);
    widget->setObjectName(shownText(control.name));
    // The model alone says where the focus is: no widget takes it by itself, neither by a press nor by Tab.
    widget->setFocusPolicy(Qt::NoFocus);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) area->viewport()->setFocusPolicy(Qt::NoFocus);
    return widget;
}

void applyControl(const Control& control, QWidget& widget) {
    const QRect place = pixels(control.place);
    if (widget.geometry() != place) widget.setGeometry(place);
    const bool visible = control.visible && pageShown(control);
    if (widget.isEnabledTo(widget.parentWidget()) != control.enabled) widget.setEnabled(control.enabled);
    rowOf(control.kind).apply(control, widget);
    applyColor(control, widget);
    if (widget.isVisibleTo(widget.parentWidget()) != visible) widget.setVisible(visible);
}

std::vector<QObject*> eventParts(QWidget& widget) {
    std::vector<QObject*> parts{&widget};
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) parts.push_back(area->viewport());
    if (auto* table = qobject_cast<QTableView*>(&widget)) parts.push_back(table->horizontalHeader()->viewport());
    if (auto* bar = widget.findChild<QTabBar*>()) parts.push_back(bar);
    return parts;
}

void enterWidget(QWidget& widget) {
    widget.setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) line->selectAll();
    // A memo is gone on with, not replaced: one key must not take all its lines away.
    if (auto* memo = qobject_cast<QPlainTextEdit*>(&widget)) memo->moveCursor(QTextCursor::End);
}

QTabBar& barOf(const QWidget& tabStrip) {
    return *tabStrip.findChild<QTabBar*>();
}

} // namespace kestrel::frontend
