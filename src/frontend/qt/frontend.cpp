#include "screen/frontend.hpp"

#include "frontend/qt/views.hpp"
#include "frontend/qt/waits.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

namespace kestrel::frontend {

void waitUntil(const std::function<bool()>& done) {
    const auto over = [&] { return screen::ended() || done(); };
    for (;;) {
        sync();
        QCoreApplication::processEvents();
        if (over()) return;
        if (const screen::PlayNext next = screen::actSource()) {
            if (!repeatHeldKey() && !next()) return;
        } else {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
}

void show(screen::Window&) {
    sync();
}

void hide(screen::Window& window) {
    drop(window);
}

void raise(screen::Window& window) {
    sync();
    if (QWidget* top = topOf(window)) top->raise();
}

void waitWhileShown(screen::Window& window) {
    waitUntil([&window] { return !window.shown; });
}

void waitUntilEnded() {
    waitUntil([] { return false; });
}

// A window that has just been mapped can be painted only when the display says so.
static void awaitDisplay(const QWidget& top) {
    constexpr int patience = 250; // milliseconds
    QElapsedTimer since;
    since.start();
    while (!top.windowHandle()->isExposed() && since.elapsed() < patience)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
}

void repaint() {
    sync();
    for (const screen::Window* window : screen::shownWindows()) {
        QWidget* top = topOf(*window);
        if (!top) continue;
        awaitDisplay(*top);
        top->repaint();
    }
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void beep() {
    QApplication::beep();
}

} // namespace kestrel::frontend
