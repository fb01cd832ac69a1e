#include "frontend/qt/events.hpp"

#include "frontend/qt/keys.hpp"
#include "frontend/qt/text.hpp"
#include "text/characters.hpp"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

namespace kestrel::frontend {

namespace {

// A window can be gone after any event.
using Target = QPointer<QWindow>;

void sendMouse(const Target& window, QEvent::Type type, QPoint point) {
    if (!window) return;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, window->mapToGlobal(point), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

// The second press of two: a window makes it of two presses in time, an event of its own it doesn't pass on whole. So
// it goes to the widget that lies there.
void sendSecondPress(QWidget& top, QPoint point) {
    const QPointer<QWidget> widget = top.childAt(point);
    for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        if (!widget) return;
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, widget->mapFrom(&top, point), top.mapToGlobal(point), Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

void sendKey(const Target& window, QEvent::Type type, const KeyStroke& stroke, bool repeat = false) {
    if (!window) return;
    QKeyEvent event(type, stroke.key, stroke.modifiers, stroke.text, repeat);
    QCoreApplication::sendEvent(window, &event);
}

void typeAscii(const Target& window, char character) {
    const bool newLine = character == '\n';
    const char text[] = {newLine ? '\r' : character, '\0'};
    const int upper = QChar(static_cast<uchar>(character)).toUpper().unicode();
    const KeyStroke stroke{newLine ? static_cast<int>(Qt::Key_Return) : upper, Qt::NoModifier, text};
    sendKey(window, QEvent::KeyPress, stroke);
    sendKey(window, QEvent::KeyRelease, stroke);
}

void commit(const QWidget& top, std::string_view character) {
    QWidget* receiver = top.focusWidget();
    QInputMethodEvent event;
    event.setCommitString(shownText(character));
    QCoreApplication::sendEvent(receiver ? receiver : const_cast<QWidget*>(&top), &event);
}

bool reaches(const QWidget& part, QPoint point) {
    const QWidget* hit = part.window()->childAt(point);
    return hit && (hit == &part || part.isAncestorOf(hit)) && part.window()->rect().contains(point);
}

} // namespace

std::optional<QPoint> reachablePoint(QWidget& part) {
    if (!part.isVisible() || !part.isEnabled()) return std::nullopt;
    const QPoint middle = part.mapTo(part.window(), part.rect().center());
    if (reaches(part, middle)) return middle;
    constexpr int steps = 24;
    for (int i = 0; i < steps * steps; ++i) {
        const QPoint inside(part.width() * (2 * (i % steps) + 1) / (2 * steps),
                            part.height() * (2 * (i / steps) + 1) / (2 * steps));
        const QPoint point = part.mapTo(part.window(), inside);
        if (reaches(part, point)) return point;
    }
    return std::nullopt;
}

void clickAt(QWidget& top, QPoint point) {
    const Target window = top.windowHandle();
    sendMouse(window, QEvent::MouseButtonPress, point);
    sendMouse(window, QEvent::MouseButtonRelease, point);
}

void clickTwiceAt(QWidget& top, QPoint point) {
    const QPointer<QWidget> alive(&top);
    clickAt(top, point);
    if (alive && top.isVisible()) sendSecondPress(top, point);
}

void strike(QWidget& top, screen::Key key) {
    const QPointer<QWidget> alive(&top);
    pressKey(top, key, false);
    if (alive) releaseKey(top, key);
}

void pressKey(QWidget& top, screen::Key key, bool repeat) {
    sendKey(top.windowHandle(), QEvent::KeyPress, strokeOf(key), repeat);
}

void releaseKey(QWidget& top, screen::Key key) {
    sendKey(top.windowHandle(), QEvent::KeyRelease, strokeOf(key));
}

void typeText(QWidget& top, std::string_view text) {
    const QPointer<QWidget> alive(&top);
    const Target window = top.windowHandle();
    for (const std::string_view character : text::characters(text)) {
        if (!alive) return;
        const bool ascii = character.size() == 1 && static_cast<unsigned char>(character[0]) < 128;
        if (ascii)
            typeAscii(window, character[0]);
        else
            commit(top, character);
    }
}

} // namespace kestrel::frontend
