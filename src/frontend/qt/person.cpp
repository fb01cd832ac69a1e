#include "frontend/qt/person.hpp"

#include "frontend/qt/keys.hpp"
#include "frontend/qt/widgets.hpp"
#include "screen/ending.hpp"
#include "screen/message.hpp"
#include "screen/person.hpp"

#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QTableView>

namespace kestrel::frontend {

namespace {

using screen::Control;
using screen::Kind;
using screen::Window;

template <class Act> void act(Act does) {
    does();
    sync();
}

bool usable(const Window& window) {
    return !screen::ended() && !screen::waiting() && window.shown && window.enabled && !window.blocked;
}

// Whether the widget may go on with the event: its control is still there, a person can use it and it has the focus.
bool goesOn(const QObject* part, const Control* control) {
    return controlOf(part) == control && usable(*control->window) && control->window->focus == control;
}

int rowAt(const QObject* part, const QMouseEvent& event) {
    const auto* table = qobject_cast<const QTableView*>(part->parent());
    return table ? table->indexAt(event.position().toPoint()).row() : -1;
}

bool insideOf(const QObject* part, const QMouseEvent& event) {
    return static_cast<const QWidget*>(part)->rect().contains(event.position().toPoint());
}

class PersonFilter : public QObject {
public:
    bool eventFilter(QObject* part, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return mousePressed(part, static_cast<QMouseEvent&>(*event));
        case QEvent::MouseButtonRelease:
            return mouseReleased(part, static_cast<QMouseEvent&>(*event));
        case QEvent::MouseMove:
            return pressed_ == part; // no selecting by drawing over rows
        case QEvent::KeyPress:
            return keyPressed(part, static_cast<QKeyEvent&>(*event));
        case QEvent::InputMethod:
            return composed(part, static_cast<QInputMethodEvent&>(*event));
        case QEvent::Wheel:
            return qobject_cast<QComboBox*>(part) != nullptr; // rolling past a drop-down changes nothing
        case QEvent::Close:
            return closeAsked(part, *event);
        default:
            return false;
        }
    }

private:
    const QObject* pressed_ = nullptr; // a panel or list under a mouse button that is held down
    int pressedRow_ = -1;
    bool pressedTwice_ = false;
    const QObject* composing_ = nullptr; // where a conversion of the input method is not yet confirmed

    bool mousePressed(const QObject* part, const QMouseEvent& event) {
        Control* control = controlOf(part);
        if (!control) return false;
        // What is being converted belongs to the field that is left.
        if (composing_) QGuiApplication::inputMethod()->commit();
        if (controlOf(part) != control || !canPress(*control)) return true;
        if (isField(*control) || control->kind == Kind::ComboBox) return fieldPressed(part, *control, event);
        if (control->kind == Kind::SSCommand || qobject_cast<QHeaderView*>(part->parent())) return false;
        if (event.button() != Qt::LeftButton) return true;
        if (control->kind == Kind::SSTab) return tabPressed(*control, event);
        pressed_ = part;
        pressedRow_ = rowAt(part, event);
        pressedTwice_ = event.type() == QEvent::MouseButtonDblClick;
        return true;
    }

    bool fieldPressed(const QObject* part, Control& control, const QMouseEvent& event) {
        const bool twice = event.type() == QEvent::MouseButtonDblClick && isField(control);
        act([&] { twice ? pressAgain(control) : press(control); });
        return !goesOn(part, &control);
    }

    bool tabPressed(Control& control, const QMouseEvent& event) {
        const QWidget* strip = widgetOf(control);
        const int page = strip ? barOf(*strip).tabAt(event.position().toPoint()) : -1;
        act([&] { page < 0 ? press(control) : turnPage(control, page); });
        return true;
    }

    bool mouseReleased(const QObject* part, const QMouseEvent& event) {
        if (!pressed_ || event.button() != Qt::LeftButton) return false;
        const bool here = pressed_ == part && insideOf(part, event) && rowAt(part, event) == pressedRow_;
        pressed_ = nullptr;
        Control* control = controlOf(part);
        if (here && control) act([&] { release(*control); });
        return true;
    }

    void release(Control& control) {
        if (control.kind == Kind::ListView && pressedRow_ >= 0)
            pressRow(control, pressedRow_, pressedTwice_);
        else
            pressedTwice_ ? pressAgain(control) : press(control);
    }

    bool keyPressed(QObject* part, QKeyEvent& event) {
        if (composing_ == part) return false;
        if (Window* window = windowOf(part)) return windowKeyPressed(*window, static_cast<QWidget&>(*part), event);
        Control* control = controlOf(part);
        if (!control || !usable(*control->window)) return true;
        if (opensDropDown(part, event)) return true;
        const std::optional<screen::Key> which = modelKey(event);
        if (!which) return !isField(*control);
        const bool edits = isField(*control) && editsText(*which, control->kind);
        act([&] { key(*control->window, *which, event.isAutoRepeat()); });
        return !(edits && goesOn(part, control));
    }

    static bool opensDropDown(QObject* part, const QKeyEvent& event) {
        auto* box = qobject_cast<QComboBox*>(part);
        if (!box || event.key() != Qt::Key_Down || !event.modifiers().testFlag(Qt::AltModifier)) return false;
        box->showPopup();
        return true;
    }

    // The window itself holds the keyboard while its focus is on a control that isn't shown, or on none.
    bool windowKeyPressed(Window& window, const QWidget& top, QKeyEvent& event) {
        if (top.focusWidget() && top.focusWidget() != &top) return true; // came up from a widget that had no use for it
        if (!usable(window)) return true;
        const std::optional<screen::Key> which = modelKey(event);
        if (writes(window, which, event)) return resend(window, event);
        if (which) act([&] { key(window, *which, event.isAutoRepeat()); });
        return true;
    }

    static bool writes(const Window& window, std::optional<screen::Key> which, const QKeyEvent& event) {
        if (!window.focus || !isField(*window.focus)) return false;
        if (!which) return !event.text().isEmpty();
        return editsText(*which, window.focus->kind) && *strokeOf(*which).text; // the others only move the cursor
    }

    // The first thing typed into a field of a page that isn't shown brings the page to the front and then reaches the
    // field.
    static bool resend(Window& window, QEvent& event) {
        const Control& focus = *window.focus;
        if (pageShown(focus) || !focus.enabled || !focus.visible) return true;
        act([&] { setValue(*focus.tab, focus.page); });
        if (QWidget* widget = widgetOf(focus)) QCoreApplication::sendEvent(widget, &event);
        return true;
    }

    bool composed(const QObject* part, QInputMethodEvent& event) {
        Window* window = windowOf(part);
        if (window) return usable(*window) && window->focus && isField(*window->focus) && resend(*window, event);
        composing_ = event.preeditString().isEmpty() ? nullptr : part;
        return false;
    }

    static bool closeAsked(const QObject* part, QEvent& event) {
        Window* window = windowOf(part);
        if (!window) return false;
        event.ignore();
        act([&] { closeByFrame(*window); });
        return true;
    }
};

} // namespace

QObject* personFilter() {
    static PersonFilter filter;
    return &filter;
}

void personPressed(const QObject* part) {
    if (Control* control = controlOf(part)) act([&] { press(*control); });
}

void personEdited(const QObject* part, const std::string& text) {
    if (Control* control = controlOf(part)) act([&] { edit(*control, text); });
}

void personChose(const QObject* part, int index) {
    if (Control* control = controlOf(part)) act([&] { choose(*control, index); });
}

void personStruck(const QObject* part, screen::Key which) {
    if (Control* control = controlOf(part)) act([&] { key(*control->window, which); });
}

void personPressedHeader(const QObject* part, int column) {
    if (Control* control = controlOf(part)) act([&] { pressHeader(*control, column); });
}

} // namespace kestrel::frontend
