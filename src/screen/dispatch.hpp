// What becomes of an error that a handler raised; shared by every place of screen/ that calls one.
#pragma once

#include "screen/window.hpp"

#include <exception>

namespace kestrel::screen {

// Enables the window again, so that nobody is locked out of it, and shows the error's text in one box.
void reportRaised(Window& window, const std::exception& error);

} // namespace kestrel::screen
