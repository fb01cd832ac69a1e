// A window: its controls, its focus, and one table that binds what happens on it to the functions that answer.
#pragma once

#include "screen/control.hpp"

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::screen {

enum class Event { change, gotFocus, lostFocus, keyDown, click, doubleClick, columnClick };

enum class Key {
    Tab,
    BackTab,
    Enter,
    Esc,
    Ctrl,
    Space,
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PageUp,
    PageDown,
    Backspace,
    Delete,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12
};

// What happened. key is meant for keyDown, column for columnClick.
struct Occurrence {
    Control& control;
    Event event;
    Key key = Key::Tab;
    int column = 0;
};

using Handler = void (*)(const Occurrence&);

// One row of a screen's table: on this control, this event is answered by that function. At most one row fits.
struct Binding {
    std::string_view control;
    Event event;
    Handler handler;
};

struct Window {
    explicit Window(std::string windowName) : name(std::move(windowName)) {}
    Window(const Window&) = delete; // controls point back to their window
    Window& operator=(const Window&) = delete;
    ~Window();

    std::string name, caption;
    int width = 0, height = 0; // twips, the frame's inside
    bool shown = false;
    bool enabled = true;
    bool loaded = false;
    bool blocked = false; // a modal window above keeps the person out
    bool modal = false;
    std::deque<Control> controls; // a deque, so that references to controls stay good
    Control* focus = nullptr;
    std::span<const Binding> bindings;
    void (*load)(Window&) = nullptr;            // runs once before the first show, and again after an unload
    void (*closeRequest)(Window&) = nullptr;    // the close box; the request itself is always cancelled
    bool (*keyPreview)(Window&, Key) = nullptr; // sees a key ahead of the controls; true: it goes no further
    Control* defaultButton = nullptr;           // takes Enter from anything that has no use for it
    Control* cancelButton = nullptr;            // takes Esc
};

// How a screen's own record makes its controls: fill in what the kind needs, the rest stays at its default.
struct ControlSpec {
    std::string_view name;
    Kind kind;
    std::string_view caption = "";
    Place place = {};
    int tabIndex = -1;
    bool tabStop = true;
    int maxLength = 0;
    InputMode inputMode = InputMode::none;
};
Control& addControl(Window& window, const ControlSpec& spec);
void placeOnPage(Control& control, Control& tab, int page);

Control* findControl(Window& window, std::string_view name); // null when there is none
void setCaption(Window& window, std::string_view caption);
void setSize(Window& window, int width, int height);
void setEnabled(Window& window, bool enabled); // enabling a blocked window also unblocks it

// A window's record outlives every handler of its own: it is never destroyed from inside one.

// Not modal: the load step runs, then the window is there. It gets no focus by itself.
void show(Window& window);
// Modal: blocks the other shown windows, gives the first focus (the control that had it, else the lowest tab index that
// can take it), and returns when the window was hidden or unloaded and the handler that did so has run to its end.
void showModal(Window& window);
void hide(Window& window);
void unload(Window& window); // hidden, and its load step runs again at the next show

const std::vector<Window*>& shownWindows(); // lowest first
Window* activeWindow();                     // the topmost one that a person can use; null when there is none
Window* findShownWindow(std::string_view name);

// Runs the handler that the window's table binds to it. The innermost dispatch catches what a handler raises: it
// enables the window again, shows one box with the error's text, and the program lives on.
void raise(const Occurrence& occurrence);
void resetScreens(); // forgets every window, box and the end of the process, so that the program can be started again

} // namespace kestrel::screen
