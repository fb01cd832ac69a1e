#include "screen/person.hpp"

#include "screen/dispatch.hpp"
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"

#include <algorithm>

namespace kestrel::screen {

namespace {

bool usable(const Window& window) {
    return window.shown && window.enabled && !window.blocked;
}

bool insideWindow(const Control& control) {
    const Place& place = control.place;
    return place.left + place.width > 0 && place.top + place.height > 0 && place.left < control.window->width &&
           place.top < control.window->height;
}

// A press's own effect comes only when the leaving step of the old field left the control usable.
bool stillUsable(const Control& control) {
    return !ended() && control.enabled && usable(*control.window);
}

void reveal(Control& control) {
    if (!pageShown(control)) setValue(*control.tab, control.page);
}

void pressByKey(Control& button) {
    if (canPress(button)) press(button);
}

void moveBy(Control& control, int step, int count) {
    const int now = control.kind == Kind::ListView ? control.selected : control.listIndex;
    const int next = std::clamp(now < 0 ? 0 : now + step, 0, count - 1);
    if (control.kind == Kind::ListView)
        setSelected(control, next);
    else
        choose(control, next);
}

// Arrows, Home and End in a list or drop-down; true when the key had a use there.
bool moveSelection(Control& control, Key which) {
    constexpr int far = 1'000'000'000;
    constexpr int pageRows = 10;
    struct Step {
        Key key;
        int rows;
    };
    constexpr Step steps[] = {{Key::Up, -1},   {Key::Down, 1},           {Key::Home, -far},
                              {Key::End, far}, {Key::PageUp, -pageRows}, {Key::PageDown, pageRows}};
    const bool list = control.kind == Kind::ListView;
    if (!list && control.kind != Kind::ComboBox) return false;
    const int count = static_cast<int>(list ? control.rows.size() : control.items.size());
    const auto step =
        std::find_if(std::begin(steps), std::end(steps), [which](const Step& row) { return row.key == which; });
    if (step == std::end(steps) || count == 0) return false;
    moveBy(control, std::clamp(step->rows, -count, count), count);
    return true;
}

// The arrows turn the pages of a tab strip.
bool movePage(Control& tab, Key which) {
    if (tab.kind != Kind::SSTab || (which != Key::Left && which != Key::Right)) return false;
    return turnPage(tab, tab.value + (which == Key::Left ? -1 : 1));
}

void enterKey(Window& window, Control* focused) {
    if (focused && isButton(*focused))
        pressByKey(*focused);
    else if (window.defaultButton && !(focused && focused->kind == Kind::xText))
        pressByKey(*window.defaultButton);
}

void tabKey(Window& window, bool backward) {
    Control* next = nextPersonStop(window, backward);
    if (next) setFocus(*next);
}

bool previewed(Window& window, Key which) {
    try {
        return window.keyPreview && window.keyPreview(window, which);
    } catch (const std::exception& error) {
        reportRaised(window, error);
        return true;
    }
}

void ownEffect(Window& window, Control* focused, Key which) {
    switch (which) {
    case Key::Tab:
    case Key::BackTab:
        tabKey(window, which == Key::BackTab);
        break;
    case Key::Enter:
        enterKey(window, focused);
        break;
    case Key::Esc:
        if (window.cancelButton) pressByKey(*window.cancelButton);
        break;
    case Key::Space:
        if (focused && isButton(*focused)) pressByKey(*focused);
        break;
    default:
        if (focused && !movePage(*focused, which)) moveSelection(*focused, which);
    }
}

} // namespace

bool canPress(const Control& control) {
    return !ended() && !waiting() && usable(*control.window) && control.visible && control.enabled && !control.guard &&
           pageShown(control) && insideWindow(control);
}

bool press(Control& control) {
    if (!canPress(control)) return false;
    if (takesFocus(control)) setFocus(control);
    if (stillUsable(control)) raise({control, Event::click});
    return true;
}

bool pressAgain(Control& control) {
    const bool button = isButton(control);
    if (!press(control)) return false;
    if (!button && stillUsable(control)) raise({control, Event::doubleClick});
    return true;
}

bool edit(Control& field, std::string_view text) {
    if (ended() || waiting() || !isField(field) || field.window->focus != &field) return false;
    if (!field.enabled || !field.visible || !usable(*field.window)) return false;
    reveal(field);
    setText(field, text);
    return true;
}

void key(Window& window, Key which, bool repeat) {
    if (ended() || waiting() || !usable(window) || (which == Key::Ctrl && repeat)) return;
    if (previewed(window, which)) return;
    Control* focused = window.focus;
    if (focused && focused->enabled) raise({*focused, Event::keyDown, which});
    if (!ended() && usable(window) && window.focus == focused) ownEffect(window, focused, which);
}

bool choose(Control& dropDown, int index) {
    if (!canPress(dropDown) || index < 0 || index >= static_cast<int>(dropDown.items.size())) return false;
    setFocus(dropDown);
    // Sent elsewhere by its entry step, its list doesn't stay open to be picked from.
    if (!stillUsable(dropDown) || dropDown.window->focus != &dropDown || dropDown.listIndex == index) return true;
    setListIndex(dropDown, index);
    raise({dropDown, Event::change});
    return true;
}

bool turnPage(Control& tab, int page) {
    if (!canPress(tab) || page < 0 || page >= static_cast<int>(tab.items.size())) return false;
    setFocus(tab);
    if (!stillUsable(tab)) return true;
    setValue(tab, page);
    raise({tab, Event::click});
    return true;
}

bool pressRow(Control& list, int index, bool twice) {
    if (!canPress(list) || index < 0 || index >= static_cast<int>(list.rows.size())) return false;
    setFocus(list);
    if (!stillUsable(list)) return true;
    setSelected(list, index);
    raise({list, Event::click});
    if (twice && stillUsable(list)) raise({list, Event::doubleClick});
    return true;
}

bool pressHeader(Control& list, int column) {
    if (!canPress(list) || column < 0 || column >= static_cast<int>(list.columns.size())) return false;
    setFocus(list);
    if (stillUsable(list)) raise({list, Event::columnClick, Key::Tab, column});
    return true;
}

bool closeByFrame(Window& window) {
    if (ended() || waiting() || !usable(window)) return false;
    try {
        if (window.closeRequest) window.closeRequest(window);
    } catch (const std::exception& error) {
        reportRaised(window, error);
    }
    return true;
}

} // namespace kestrel::screen
