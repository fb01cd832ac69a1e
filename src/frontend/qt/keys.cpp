#include "frontend/qt/keys.hpp"

#include <algorithm>
#include <array>

namespace kestrel::frontend {

namespace {

using screen::Key;

struct KeyRow {
    Key key;
    int qt;
    const char* text = "";
    bool edits = false;
};

constexpr std::array keys{
    KeyRow{Key::Tab, Qt::Key_Tab, "\t"},
    KeyRow{Key::BackTab, Qt::Key_Backtab},
    KeyRow{Key::Enter, Qt::Key_Return, "\r"},
    KeyRow{Key::Esc, Qt::Key_Escape, "\x1b"},
    KeyRow{Key::Ctrl, Qt::Key_Control},
    KeyRow{Key::Space, Qt::Key_Space, " ", true},
    KeyRow{Key::Up, Qt::Key_Up, "", true},
    KeyRow{Key::Down, Qt::Key_Down, "", true},
    KeyRow{Key::Left, Qt::Key_Left, "", true},
    KeyRow{Key::Right, Qt::Key_Right, "", true},
    KeyRow{Key::Home, Qt::Key_Home, "", true},
    KeyRow{Key::End, Qt::Key_End, "", true},
    KeyRow{Key::PageUp, Qt::Key_PageUp, "", true},
    KeyRow{Key::PageDown, Qt::Key_PageDown, "", true},
    KeyRow{Key::Backspace, Qt::Key_Backspace, "\b", true},
    KeyRow{Key::Delete, Qt::Key_Delete, "\x7f", true},
    KeyRow{Key::F1, Qt::Key_F1},
    KeyRow{Key::F2, Qt::Key_F2},
    KeyRow{Key::F3, Qt::Key_F3},
    KeyRow{Key::F4, Qt::Key_F4},
    KeyRow{Key::F5, Qt::Key_F5},
    KeyRow{Key::F6, Qt::Key_F6},
    KeyRow{Key::F7, Qt::Key_F7},
    KeyRow{Key::F8, Qt::Key_F8},
    KeyRow{Key::F9, Qt::Key_F9},
    KeyRow{Key::F10, Qt::Key_F10},
    KeyRow{Key::F11, Qt::Key_F11},
    KeyRow{Key::F12, Qt::Key_F12},
};

const KeyRow& rowOf(Key key) {
    return *std::find_if(keys.begin(), keys.end(), [key](const KeyRow& row) { return row.key == key; });
}

// The keypad's Enter, and Shift+Tab where the platform doesn't make a Backtab of it.
int plainKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Enter) return Qt::Key_Return;
    if (event.key() == Qt::Key_Tab && event.modifiers().testFlag(Qt::ShiftModifier)) return Qt::Key_Backtab;
    return event.key();
}

} // namespace

std::optional<Key> modelKey(const QKeyEvent& event) {
    const int key = plainKey(event);
    const auto found = std::find_if(keys.begin(), keys.end(), [key](const KeyRow& row) { return row.qt == key; });
    if (found == keys.end()) return std::nullopt;
    return found->key;
}

KeyStroke strokeOf(Key key) {
    const KeyRow& row = rowOf(key);
    return {row.qt, key == Key::BackTab ? Qt::ShiftModifier : Qt::NoModifier, row.text};
}

bool editsText(Key key, screen::Kind kind) {
    return rowOf(key).edits || (key == Key::Enter && kind == screen::Kind::xText);
}

} // namespace kestrel::frontend
