// The model's keys and the toolkit's.
#pragma once

#include "screen/window.hpp"

#include <QKeyEvent>

#include <optional>

namespace kestrel::frontend {

struct KeyStroke {
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* text; // what the key writes, empty for none
};

std::optional<screen::Key>
modelKey(const QKeyEvent& event); // nothing for letters and for combinations the form has no use for
KeyStroke strokeOf(screen::Key key);

// Keys that a field uses itself, once the form has seen them.
bool editsText(screen::Key key, screen::Kind kind);

} // namespace kestrel::frontend
