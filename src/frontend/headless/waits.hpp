// What waits for a person, innermost last, and the long press that goes on while it does. Front end and hand share it.
#pragma once

#include "screen/message.hpp"
#include "screen/window.hpp"

#include <optional>
#include <string>

namespace kestrel::headless {

// A box or dialog that is open. The hand answers the innermost one.
struct OpenWait {
    const screen::MessageBox* box = nullptr; // null: a file or folder dialog
    int focusedButton = 0;
    bool answered = false;
    int button = 0;                  // a box's answer
    std::optional<std::string> path; // a dialog's; nothing when it was cancelled
    OpenWait* outer = nullptr;
};

OpenWait* innermostWait();

// A key that is held down repeats into whatever waits for a person meanwhile, before the next act is played.
void holdKey(screen::Key key, int repeats);
bool repeatHeldKey(); // false when no key is held

} // namespace kestrel::headless
