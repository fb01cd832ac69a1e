#include "screen/window.hpp"

#include "platform/journal.hpp"
#include "screen/dispatch.hpp"
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/frontend.hpp"
#include "screen/message.hpp"
#include "screen/reset.hpp"
#include "text/quoting.hpp"

#include <algorithm>

namespace kestrel::screen {

static std::vector<Window*> shownList;

static bool isShown(const Window* window) {
    return std::find(shownList.begin(), shownList.end(), window) != shownList.end();
}

static void removeFromShown(Window& window) {
    std::erase(shownList, &window);
    window.shown = window.modal = window.blocked = false;
}

Window::~Window() {
    if (!shown) return;
    removeFromShown(*this);
    frontend::hide(*this);
}

Control& addControl(Window& window, const ControlSpec& spec) {
    Control& control = window.controls.emplace_back();
    control.name = spec.name;
    control.kind = spec.kind;
    control.window = &window;
    control.caption = spec.caption;
    control.place = spec.place;
    control.tabIndex = spec.tabIndex;
    control.tabStop = spec.tabStop;
    control.maxLength = spec.maxLength;
    control.inputMode = spec.inputMode;
    if (control.kind == Kind::xNum) control.text = "0";
    return control;
}

void placeOnPage(Control& control, Control& tab, int page) {
    control.tab = &tab;
    control.page = page;
}

Control* findControl(Window& window, std::string_view name) {
    const auto found = std::find_if(window.controls.begin(), window.controls.end(),
                                    [name](const Control& control) { return control.name == name; });
    return found == window.controls.end() ? nullptr : &*found;
}

void setCaption(Window& window, std::string_view caption) {
    if (!ended()) window.caption = caption;
}

void setSize(Window& window, int width, int height) {
    if (ended()) return;
    window.width = width;
    window.height = height;
}

void setEnabled(Window& window, bool enabled) {
    if (ended()) return;
    window.enabled = enabled;
    if (enabled) window.blocked = false;
}

static void load(Window& window) {
    if (window.loaded) return;
    window.loaded = true;
    if (!window.load) return;
    try {
        window.load(window);
    } catch (...) {
        window.loaded = false; // the next show tries again
        throw;
    }
}

static void bringUp(Window& window) {
    if (window.shown) {
        std::erase(shownList, &window);
        shownList.push_back(&window);
        frontend::raise(window);
        return;
    }
    window.shown = true;
    shownList.push_back(&window);
    journal::record(journal::Channel::seen, "window " + window.name + " " + text::quoted(window.caption));
    frontend::show(window);
}

void show(Window& window) {
    if (ended()) return;
    load(window);
    if (!ended()) bringUp(window);
}

static void giveFirstFocus(Window& window) {
    if (window.focus && canTakeFocus(*window.focus)) {
        raise({*window.focus, Event::gotFocus});
        return;
    }
    window.focus = nullptr;
    Control* first = nextPersonStop(window, false);
    if (first) setFocus(*first);
}

static std::vector<Window*> blockOthers(const Window& window) {
    std::vector<Window*> blocked;
    for (Window* other : shownList) {
        if (other == &window || other->blocked) continue;
        other->blocked = true;
        blocked.push_back(other);
    }
    return blocked;
}

void showModal(Window& window) {
    if (ended()) return;
    load(window);
    if (ended()) return;
    window.enabled = true;
    window.blocked = false;
    window.modal = true;
    const std::vector<Window*> blocked = blockOthers(window);
    bringUp(window);
    giveFirstFocus(window);
    if (!ended() && window.shown) frontend::waitWhileShown(window);
    for (Window* other : blocked)
        if (isShown(other)) other->blocked = false;
}

void hide(Window& window) {
    if (ended() || !window.shown) return;
    removeFromShown(window);
    journal::record(journal::Channel::seen, "closed " + window.name);
    frontend::hide(window);
}

void unload(Window& window) {
    if (ended()) return;
    hide(window);
    window.loaded = false;
    window.focus = nullptr;
}

const std::vector<Window*>& shownWindows() {
    return shownList;
}

Window* activeWindow() {
    const auto usable = [](const Window* window) { return window->enabled && !window->blocked; };
    const auto found = std::find_if(shownList.rbegin(), shownList.rend(), usable);
    return found == shownList.rend() ? nullptr : *found;
}

Window* findShownWindow(std::string_view name) {
    const auto found =
        std::find_if(shownList.begin(), shownList.end(), [name](const Window* window) { return window->name == name; });
    return found == shownList.end() ? nullptr : *found;
}

void reportRaised(Window& window, const std::exception& error) {
    if (ended()) return;
    if (isShown(&window)) setEnabled(window, true);
    message(error.what());
}

void raise(const Occurrence& occurrence) {
    if (ended()) return;
    Window& window = *occurrence.control.window;
    const auto fits = [&](const Binding& row) {
        return row.event == occurrence.event && row.control == occurrence.control.name;
    };
    const auto found = std::find_if(window.bindings.begin(), window.bindings.end(), fits);
    if (found == window.bindings.end()) return;
    try {
        found->handler(occurrence);
    } catch (const std::exception& error) {
        reportRaised(window, error);
    }
}

void resetScreens() {
    const std::vector<Window*> open = shownList;
    for (Window* window : open) {
        removeFromShown(*window);
        frontend::hide(*window);
    }
    forgetWaiting();
    forgetEnd();
}

} // namespace kestrel::screen
