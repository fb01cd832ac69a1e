#include "frontend/qt/views.hpp"

#include "frontend/qt/accessible.hpp"
#include "frontend/qt/boxes.hpp"
#include "frontend/qt/lists.hpp"
#include "frontend/qt/look.hpp"
#include "frontend/qt/person.hpp"
#include "frontend/qt/text.hpp"
#include "frontend/qt/widgets.hpp"
#include "screen/ending.hpp"

#include <QApplication>
#include <QHash>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <memory>

namespace kestrel::frontend {

namespace {

struct WindowView {
    screen::Window* window;
    QWidget* top;
    std::vector<QWidget*> widgets; // one a control, in the order of the window's controls
};

// A list of pointers: views come and go while a caller further up still works on his. Neither is ever destroyed:
// windows that live as long as the process say at its very end that they are gone.
auto& views = *new std::vector<std::unique_ptr<WindowView>>;
auto& parts = *new QHash<const QObject*, screen::Control*>;
const screen::Window* activated = nullptr;

WindowView* viewOf(const screen::Window& window) {
    const auto found =
        std::find_if(views.begin(), views.end(), [&](const auto& view) { return view->window == &window; });
    return found == views.end() ? nullptr : found->get();
}

void watch(QObject* part, screen::Control& control) {
    parts.insert(part, &control);
    part->installEventFilter(personFilter());
}

void addWidget(WindowView& view, screen::Control& control) {
    QWidget* widget = makeWidget(control, view.top);
    view.widgets.push_back(widget);
    for (QObject* part : eventParts(*widget)) watch(part, control);
}

// What lies beneath what: tab strips at the bottom, then panels from the largest to the smallest, then all else.
void stack(const WindowView& view) {
    const auto depth = [](const screen::Control& control) {
        if (control.kind == screen::Kind::SSTab) return -2'000'000'000LL;
        if (control.kind != screen::Kind::SSPanel) return 0LL;
        return -1LL * control.place.width * control.place.height;
    };
    std::vector<std::pair<long long, QWidget*>> order;
    for (std::size_t i = 0; i < view.widgets.size(); ++i)
        order.emplace_back(depth(view.window->controls[i]), view.widgets[i]);
    std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [place, widget] : order) widget->raise();
}

void addMissing(WindowView& view) {
    if (view.widgets.size() == view.window->controls.size()) return;
    for (std::size_t i = view.widgets.size(); i < view.window->controls.size(); ++i)
        addWidget(view, view.window->controls[i]);
    stack(view);
    nameForAssistance(*view.window);
}

QWidget* makeTop(const screen::Window& window) {
    const Qt::WindowFlags kind = window.modal ? Qt::Dialog : Qt::Window;
    auto* top = new QWidget(nullptr, kind | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint);
    // A short notice beside the work takes the keyboard from nobody.
    top->setAttribute(Qt::WA_ShowWithoutActivating, !window.modal && screen::shownWindows().size() > 1);
    top->setObjectName(shownText(window.name));
    top->installEventFilter(personFilter());
    return top;
}

WindowView& viewMade(screen::Window& window) {
    if (WindowView* view = viewOf(window)) return *view;
    views.push_back(std::make_unique<WindowView>(WindowView{&window, makeTop(window), {}}));
    return *views.back();
}

// The height that a window states may hold its frame's title bar as well: what would lie empty beneath the lowest
// control, beyond the margin beside it, isn't shown.
int insideHeight(const screen::Window& window) {
    int bottom = 0;
    int margin = window.height;
    for (const screen::Control& control : window.controls) {
        const int end = control.place.top + control.place.height;
        if (control.guard || end > window.height || end < bottom) continue;
        margin = end == bottom ? std::min(margin, control.place.left) : control.place.left;
        bottom = end;
    }
    return std::min(window.height, bottom + std::max(margin, 0));
}

void applyWindow(const WindowView& view) {
    const screen::Window& window = *view.window;
    const QString title = shownText(window.caption);
    if (view.top->windowTitle() != title) view.top->setWindowTitle(title);
    const QSize size(toPixels(window.width), toPixels(insideHeight(window)));
    if (view.top->size() != size || view.top->minimumSize() != size) view.top->setFixedSize(size);
}

// The focus of the model, shown. Where its control can't be shown (another page, or disabled meanwhile) the window
// itself holds the keyboard, so that no key is lost.
void applyFocus(const WindowView& view) {
    const screen::Control* focus = view.window->focus;
    QWidget* wanted = focus ? widgetOf(*focus) : nullptr;
    if (!wanted || !wanted->isVisibleTo(view.top) || !wanted->isEnabledTo(view.top)) wanted = view.top;
    view.top->setAttribute(Qt::WA_InputMethodEnabled, wanted == view.top && focus && screen::isField(*focus));
    QWidget* target = wanted->focusProxy() ? wanted->focusProxy() : wanted;
    if (view.top->focusWidget() == target) return;
    enterWidget(*target);
}

void apply(WindowView& view) {
    addMissing(view);
    applyWindow(view);
    for (std::size_t i = 0; i < view.widgets.size(); ++i) applyControl(view.window->controls[i], *view.widgets[i]);
    applyFocus(view);
}

// A list is wider than the form that opens it: at the edge of the screen it moves in, its upper left corner first.
QPoint insideScreen(QPoint wanted, QSize size, const QRect& screen) {
    const int left = std::min(wanted.x(), screen.x() + screen.width() - size.width());
    const int top = std::min(wanted.y(), screen.y() + screen.height() - size.height());
    return {std::max(left, screen.x()), std::max(top, screen.y())};
}

void putOver(QWidget& top, const screen::Window& below) {
    QWidget* parent = topOf(below);
    if (!parent || !parent->windowHandle()) return;
    top.winId(); // makes the window handle
    top.windowHandle()->setTransientParent(parent->windowHandle());
    const QPoint wanted = parent->geometry().center() - QPoint(top.width() / 2, top.height() / 2);
    top.move(insideScreen(wanted, top.size(), parent->screen()->availableGeometry()));
}

void bringUp(const WindowView& view) {
    if (view.top->isVisible()) return;
    const auto& shown = screen::shownWindows();
    const auto place = std::find(shown.begin(), shown.end(), view.window);
    if (place != shown.begin() && place != shown.end()) putOver(*view.top, **std::prev(place));
    view.top->show();
}

// Gives the keyboard to the window that a person can use, once, when it becomes another one.
void activate() {
    const screen::Window* active = screen::activeWindow();
    if (active == activated || dialogWaiting()) return;
    activated = active;
    if (!active) return;
    if (QWidget* top = topOf(*active)) {
        top->raise();
        top->activateWindow();
    }
}

} // namespace

void sync() {
    if (screen::ended()) return;
    for (screen::Window* window : screen::shownWindows()) {
        WindowView& view = viewMade(*window);
        apply(view);
        bringUp(view);
    }
    activate();
}

static void forget(WindowView& view) {
    for (QWidget* widget : view.widgets) {
        for (QObject* part : eventParts(*widget)) parts.remove(part);
        leaveList(*widget);
    }
    if (activated == view.window) activated = nullptr;
    view.top->hide();
    view.top->deleteLater();
}

void drop(const screen::Window& window) {
    const auto found =
        std::find_if(views.begin(), views.end(), [&](const auto& view) { return view->window == &window; });
    if (found == views.end()) return;
    const std::unique_ptr<WindowView> view = std::move(*found);
    views.erase(found);
    forget(*view);
}

void giveBackKeyboard() {
    activated = nullptr;
}

void dropAll() {
    while (!views.empty()) drop(*views.back()->window);
}

QWidget* topOf(const screen::Window& window) {
    const WindowView* view = viewOf(window);
    return view ? view->top : nullptr;
}

QWidget* widgetOf(const screen::Control& control) {
    const WindowView* view = viewOf(*control.window);
    if (!view) return nullptr;
    for (QWidget* widget : view->widgets)
        if (controlOf(widget) == &control) return widget;
    return nullptr;
}

screen::Window* windowOf(const QObject* top) {
    for (const auto& view : views)
        if (view->top == top) return view->window;
    return nullptr;
}

screen::Control* controlOf(const QObject* part) {
    return parts.value(part, nullptr);
}

} // namespace kestrel::frontend
