// The hand and the eye without a display: acts go to the model, and what is shown is what the model says.
#include "screen/hand.hpp"

#include "frontend/headless/waits.hpp"
#include "screen/ending.hpp"
#include "screen/person.hpp"
#include "text/characters.hpp"

#include <algorithm>

namespace kestrel::headless {

static screen::Key heldKey = screen::Key::Ctrl;
static int repeatsLeft = 0;

void holdKey(screen::Key key, int repeats) {
    heldKey = key;
    repeatsLeft = repeats;
}

bool repeatHeldKey() {
    if (repeatsLeft == 0) return false;
    --repeatsLeft;
    screen::Window* window = screen::activeWindow();
    if (window && !innermostWait()) screen::key(*window, heldKey, true);
    return true;
}

namespace {

void answerBox(OpenWait& wait, int button) {
    wait.button = button;
    wait.answered = true;
}

void moveButtonFocus(OpenWait& wait, int step) {
    const int count = static_cast<int>(wait.box->buttons.size());
    wait.focusedButton = (wait.focusedButton + step + count) % count;
}

void boxKey(OpenWait& wait, screen::Key which) {
    using enum screen::Key;
    switch (which) {
    case Enter:
    case Space:
        answerBox(wait, wait.focusedButton);
        break;
    case Esc:
        answerBox(wait, wait.box->cancelButton);
        break;
    case Tab:
    case Right:
    case Down:
        moveButtonFocus(wait, 1);
        break;
    case BackTab:
    case Left:
    case Up:
        moveButtonFocus(wait, -1);
        break;
    default:
        break;
    }
}

void waitKey(OpenWait& wait, screen::Key which) {
    if (wait.box)
        boxKey(wait, which);
    else if (which == screen::Key::Esc)
        wait.answered = true;
}

std::string withoutLastCharacter(std::string_view text) {
    if (text.ends_with("\r\n")) return std::string(text.substr(0, text.size() - 2));
    const auto all = text::characters(text);
    return all.empty() ? std::string() : std::string(text.substr(0, text.size() - all.back().size()));
}

// The field whose cursor stands at the end of its text, by a press or an edit. Any other one-line field that gets the
// focus has its whole text selected; a memo is gone on with.
const screen::Control* cursorIn = nullptr;

bool cursorBehind(const screen::Control& field) {
    return cursorIn == &field || field.kind == screen::Kind::xText;
}

void editBehind(screen::Control& field, std::string_view added) {
    const std::string kept = cursorBehind(field) ? field.text : std::string();
    cursorIn = &field;
    screen::edit(field, kept + std::string(added));
}

void deleteIn(screen::Control& field, screen::Key which) {
    const bool all = !cursorBehind(field);
    cursorIn = &field;
    if (all)
        screen::edit(field, "");
    else if (which == screen::Key::Backspace)
        screen::edit(field, withoutLastCharacter(field.text));
}

// What a key does to the text of a field.
void fieldKey(screen::Control& field, screen::Key which) {
    if (which == screen::Key::Backspace || which == screen::Key::Delete)
        deleteIn(field, which);
    else if (which == screen::Key::Space)
        editBehind(field, " ");
    else if (which == screen::Key::Enter && field.kind == screen::Kind::xText)
        editBehind(field, "\r\n");
}

void windowKey(screen::Window& window, screen::Key which) {
    screen::Control* focused = window.focus;
    screen::key(window, which);
    if (screen::ended() || window.focus != focused) cursorIn = nullptr;
    if (focused && !screen::ended() && window.focus == focused && screen::isField(*focused)) fieldKey(*focused, which);
}

screen::Control* focusedField() {
    const screen::Window* window = screen::activeWindow();
    return window && window->focus && screen::isField(*window->focus) ? window->focus : nullptr;
}

// One key of a typed text; the first one replaces what was selected.
void typeCharacter(screen::Control& field, std::string_view character, bool replacing) {
    const std::string before = replacing ? std::string() : field.text;
    if (character != "\n")
        screen::edit(field, before + std::string(character));
    else if (field.kind == screen::Kind::xText)
        screen::edit(field, before + "\r\n");
    else
        screen::key(*field.window, screen::Key::Enter);
}

bool stillShown(const screen::Window* window) {
    const auto& shown = screen::shownWindows();
    return std::find(shown.begin(), shown.end(), window) != shown.end();
}

} // namespace
} // namespace kestrel::headless

namespace kestrel::hand {

bool click(screen::Control& control) {
    const bool pressed = screen::press(control);
    const bool stayed = pressed && !screen::ended() && control.window->focus == &control;
    headless::cursorIn = stayed ? &control : nullptr;
    return pressed;
}

// As on a screen: the first press is one of its own, and may have closed the window.
bool doubleClick(screen::Control& control) {
    const screen::Window* window = control.window;
    if (!click(control)) return false;
    if (headless::stillShown(window)) screen::pressAgain(control);
    return true;
}

void key(screen::Key which) {
    if (headless::OpenWait* wait = headless::innermostWait())
        headless::waitKey(*wait, which);
    else if (screen::Window* window = screen::activeWindow())
        headless::windowKey(*window, which);
}

void hold(screen::Key which) {
    headless::holdKey(which, heldRepeats);
    key(which);
    while (headless::repeatHeldKey()) {
    }
}

void typeOver(std::string_view text) {
    screen::Control* field = headless::focusedField();
    if (!field) return;
    if (text.empty() && !field->text.empty()) screen::edit(*field, "");
    headless::cursorIn = field;
    // Nobody selects what isn't on the screen: the first key brings a memo's page to the front, and goes behind its
    // text.
    bool replacing = field->kind != screen::Kind::xText || screen::pageShown(*field);
    for (std::string_view character : text::characters(text)) {
        if (screen::ended() || headless::focusedField() != field) return;
        headless::typeCharacter(*field, character, replacing);
        replacing = false;
    }
}

bool choose(screen::Control& dropDown, int index) {
    return screen::choose(dropDown, index);
}

bool page(screen::Control& tab, int index) {
    return screen::turnPage(tab, index);
}

bool row(screen::Control& list, int index, bool twice) {
    const screen::Window* window = list.window;
    if (!screen::pressRow(list, index)) return false;
    if (twice && headless::stillShown(window)) screen::pressRow(list, index, true);
    return true;
}

bool header(screen::Control& list, int column) {
    return screen::pressHeader(list, column);
}

bool closeWindow() {
    screen::Window* window = screen::activeWindow();
    return window && screen::closeByFrame(*window);
}

bool answer(std::string_view caption) {
    headless::OpenWait* wait = headless::innermostWait();
    if (!wait || !wait->box) return false;
    const auto& buttons = wait->box->buttons;
    const auto found = std::find(buttons.begin(), buttons.end(), caption);
    if (found == buttons.end()) return false;
    headless::answerBox(*wait, static_cast<int>(found - buttons.begin()));
    return true;
}

bool pick(std::string_view path) {
    headless::OpenWait* wait = headless::innermostWait();
    if (!wait || wait->box) return false;
    wait->path = std::string(path);
    wait->answered = true;
    return true;
}

bool cancel() {
    headless::OpenWait* wait = headless::innermostWait();
    if (!wait) return false;
    headless::waitKey(*wait, screen::Key::Esc);
    return true;
}

} // namespace kestrel::hand
