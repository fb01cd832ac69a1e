// Names for screen readers: a field is called by the caption that stands before it.
#pragma once

#include "screen/window.hpp"

namespace kestrel::frontend {

void nameForAssistance(screen::Window& window);

} // namespace kestrel::frontend
