// What happens on a list window: which control's event is answered by which step, derived from the window's tables.
#pragma once

#include "lists/listFrame.hpp"

namespace kestrel {

std::vector<screen::Binding> listBindings(const ListWindow& list); // its controls are made
bool listKey(screen::Window& window, screen::Key which);           // keys that the window sees ahead of its controls

} // namespace kestrel
